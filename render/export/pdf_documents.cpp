#include "render/export/pdf_documents.h"

#include "render/export/slide_file.h"

#include <QtCore/QFileInfo>
#include <QtGui/QColorSpace>

#include <utility>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// The objects of a document, numbered from 1 in the order in which they are written.
class PdfWriter
{
public:
    PdfWriter() { m_file = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n"; }

    void object(const QByteArray &dictionary)
    {
        begin();
        m_file += dictionary + "\nendobj\n";
    }

    void stream(const QByteArray &entries, const QByteArray &data)
    {
        begin();
        m_file += "<< " + entries + " /Length " + QByteArray::number(data.size()) + " >>\nstream\n";
        m_file += data;
        m_file += "\nendstream\nendobj\n";
    }

    QByteArray finished()
    {
        const QByteArray count = QByteArray::number(m_offsets.size() + 1);
        const QByteArray start = QByteArray::number(m_file.size());
        m_file += "xref\n0 " + count + "\n0000000000 65535 f \n";
        for (const qsizetype offset : std::as_const(m_offsets))
            m_file += QByteArray::number(offset).rightJustified(10, '0') + " 00000 n \n";
        m_file += "trailer\n<< /Size " + count + " /Root 1 0 R >>\nstartxref\n" + start + "\n%%EOF\n";
        return std::move(m_file);
    }

private:
    void begin()
    {
        m_offsets.append(m_file.size());
        m_file += QByteArray::number(m_offsets.size()) + " 0 obj\n";
    }

    QByteArray m_file;
    QList<qsizetype> m_offsets;
};

constexpr int objectsBefore = 3; // catalogue, list of pages and profile
constexpr int objectsOfPage = 3;

QByteArray reference(size_t number)
{
    return QByteArray::number(qulonglong(number)) + " 0 R";
}

} // namespace

QByteArray pdfDocument(std::span<const EncodedSlide> pages)
{
    QByteArray list;
    for (size_t i = 0; i < pages.size(); ++i)
        list += reference(objectsBefore + objectsOfPage * i + 1) + ' ';
    PdfWriter pdf;
    pdf.object("<< /Type /Catalog /Pages 2 0 R >>");
    pdf.object("<< /Type /Pages /Kids [ " + list + "] /Count " +
               QByteArray::number(qulonglong(pages.size())) + " >>");
    pdf.stream("/N 3 /Alternate /DeviceRGB", QColorSpace(QColorSpace::SRgb).iccProfile());
    for (size_t i = 0; i < pages.size(); ++i) {
        const size_t number = objectsBefore + objectsOfPage * i + 1;
        const QByteArray width = QByteArray::number(pages[i].size.width());
        const QByteArray height = QByteArray::number(pages[i].size.height());
        pdf.object("<< /Type /Page /Parent 2 0 R /MediaBox [ 0 0 " + width + ' ' + height +
                   " ] /Resources << /XObject << /Slide " + reference(number + 2) + " >> >> /Contents " +
                   reference(number + 1) + " >>");
        pdf.stream({}, width + " 0 0 " + height + " 0 0 cm /Slide Do");
        pdf.stream("/Type /XObject /Subtype /Image /Width " + width + " /Height " + height +
                       " /BitsPerComponent 8 /ColorSpace [ /ICCBased 3 0 R ] /Filter /DCTDecode",
                   pages[i].file);
    }
    return pdf.finished();
}

Result<> PdfDocuments::prepareFolder(const QString &path)
{
    if (const Result<> written = writeDocument(); !written)
        return written;
    m_folder = path;
    return m_destination.prepareFolder(QFileInfo(path).path());
}

Result<> PdfDocuments::write(const QString &path, const EncodedSlide &slide)
{
    if (!slide.isDrawn())
        return notDrawn(path, slide);
    m_pages.push_back(slide);
    return {};
}

Result<> PdfDocuments::writeBeside(const QString &path, const QByteArray &bytes)
{
    const QFileInfo file(path);
    return m_destination.writeBeside(file.path() == m_folder ? m_folder + u'.' + file.suffix() : path, bytes);
}

Result<> PdfDocuments::finish()
{
    const Result<> written = writeDocument();
    return written ? m_destination.finish() : written;
}

Result<> PdfDocuments::writeDocument()
{
    const std::vector<EncodedSlide> pages = std::exchange(m_pages, {});
    if (pages.empty())
        return {};
    EncodedSlide document;
    document.file = pdfDocument(pages);
    return m_destination.write(m_folder + u".pdf"_s, document);
}

} // namespace mosslantern
