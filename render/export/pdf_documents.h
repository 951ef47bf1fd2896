#pragma once

#include "render/export/slide_destination.h"

#include <span>
#include <vector>

namespace mosslantern {

/// Makes one PDF file of each folder of an export, called like it, with ".pdf" behind: a page for each slide,
/// which holds the slide's JPEG file as it is.
class PdfDocuments : public SlideDestination
{
public:
    /// The files go to `destination`, which must outlive this.
    explicit PdfDocuments(SlideDestination &destination)
        : m_destination(destination)
    {}

    [[nodiscard]] Result<> prepareFolder(const QString &path) override;
    /// `slide` has to be a JPEG picture.
    [[nodiscard]] Result<> write(const QString &path, const EncodedSlide &slide) override;
    /// What would be in the folder is called like the document.
    [[nodiscard]] Result<> writeBeside(const QString &path, const QByteArray &bytes) override;
    [[nodiscard]] Result<> finish() override;

private:
    [[nodiscard]] Result<> writeDocument();

    SlideDestination &m_destination;
    QString m_folder;
    std::vector<EncodedSlide> m_pages;
};

/// The PDF document (ISO 32000) of these JPEG pictures: pages of a point for each pixel, colours as sRGB.
[[nodiscard]] QByteArray pdfDocument(std::span<const EncodedSlide> pages);

} // namespace mosslantern
