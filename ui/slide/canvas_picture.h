#pragma once

#include "render/slide_composition.h"
#include "ui/common/thumbnail_loader.h"

#include <QtQuick/QQuickItem>

namespace mosslantern {

/// The picture behind a slide, loaded in the background and no larger than its canvas.
class CanvasPicture : public QObject
{
    Q_OBJECT

public:
    /// When a picture is asked for: the canvas's before those of the small slides around it.
    enum class Turn { first, later };

    /// `item`: whose engine's loader is used.
    CanvasPicture(QQuickItem &item, Turn turn);
    ~CanvasPicture() override;

    /// Wants the file at `path`, filling a canvas of this many pixels. What is at hand of the same file is
    /// shown until the new size is there.
    void show(const QString &path, QSize pixels);

    /// What there is of the picture, as a background: none while it loads and when it cannot be shown.
    std::optional<PictureFill> fill() const;

    /// Whether the picture is there in the size that is wanted.
    bool isLoaded() const { return m_isLoaded; }

signals:
    /// What fill() gives, or whether it is loaded.
    void changed();

private:
    void request();
    void take(const QImage &image);

    QQuickItem &m_item;
    Turn m_turn;
    QPointer<ThumbnailLoader> m_loader;
    ThumbnailRequest m_wanted;
    QImage m_image;
    bool m_isLoaded = false;
};

} // namespace mosslantern
