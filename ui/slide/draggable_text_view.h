#pragma once

#include "model/rgba_color.h"
#include "render/text/text_block.h"

#include <QtCore/QObject>
#include <QtCore/QPointF>
#include <QtCore/QSizeF>
#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace mosslantern {

/// A text block on a canvas, and what the user does with it: move, scale and edit. It holds no pixels.
class DraggableTextView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    /// A TextStyle as a number.
    Q_PROPERTY(int style READ styleNumber WRITE setStyleNumber NOTIFY styleChanged)
    Q_PROPERTY(bool isSubtitle READ isSubtitle WRITE setIsSubtitle NOTIFY isSubtitleChanged)
    Q_PROPERTY(QPointF position READ position WRITE setPosition NOTIFY positionChanged)
    Q_PROPERTY(double scale READ scale WRITE setScale NOTIFY scaleChanged)
    Q_PROPERTY(QSizeF containerSize READ containerSize WRITE setContainerSize NOTIFY containerSizeChanged)
    Q_PROPERTY(QColor boxColor READ boxQColor WRITE setBoxQColor NOTIFY boxColorChanged)
    Q_PROPERTY(bool isEditable READ isEditable WRITE setIsEditable NOTIFY isEditableChanged)
    Q_PROPERTY(QSizeF dragOffset READ dragOffset NOTIFY dragOffsetChanged)
    Q_PROPERTY(double currentScale READ currentScale NOTIFY currentScaleChanged)
    Q_PROPERTY(bool isFocused READ isFocused WRITE setIsFocused NOTIFY isFocusedChanged)
    Q_PROPERTY(double editorHeight READ editorHeight WRITE setEditorHeight NOTIFY editorHeightChanged)
    /// A point, or undefined.
    Q_PROPERTY(QVariant clickLocation READ clickLocationOrUndefined NOTIFY clickLocationChanged)

    Q_PROPERTY(QSizeF frameSize READ frameSize NOTIFY layoutChanged)
    Q_PROPERTY(QPointF center READ center NOTIFY centerChanged)
    Q_PROPERTY(double drawnScale READ drawnScale NOTIFY drawnScaleChanged)
    Q_PROPERTY(QFont editorFont READ editorFont NOTIFY layoutChanged)
    Q_PROPERTY(QColor textColor READ textColor NOTIFY layoutChanged)

public:
    explicit DraggableTextView(QObject *parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString &text);

    /// The text that the user has typed.
    Q_INVOKABLE void type(const QString &text) { setText(text); }

    /// While an input method composes, the text with what it composes in it is drawn instead.
    Q_INVOKABLE void compose(const QString &text) { setComposedText(text); }
    Q_INVOKABLE void endComposing() { setComposedText({}); }

    TextStyle style() const { return m_style; }
    void setStyle(TextStyle style);

    bool isSubtitle() const { return m_isSubtitle; }
    void setIsSubtitle(bool isSubtitle);

    /// Centre of the block as fractions of the canvas.
    QPointF position() const { return m_position; }
    void setPosition(QPointF position);

    double scale() const { return m_scale; }
    void setScale(double scale);

    /// Size of the canvas in points.
    QSizeF containerSize() const { return m_containerSize; }
    void setContainerSize(QSizeF size);

    RgbaColor boxColor() const { return m_boxColor; }
    void setBoxColor(const RgbaColor &color);

    bool isEditable() const { return m_isEditable; }
    void setIsEditable(bool isEditable);

    /// Translation of the running drag, in points of the canvas.
    QSizeF dragOffset() const { return m_dragOffset; }

    /// Factor of the running magnify gesture.
    double currentScale() const { return m_currentScale; }

    /// Whether the block is being edited.
    bool isFocused() const { return m_isFocused; }
    void setIsFocused(bool isFocused);

    /// What the text editor needs, in points.
    double editorHeight() const { return m_editorHeight; }
    void setEditorHeight(double height);

    /// Where the double-click landed that began editing, in points of the frame.
    std::optional<QPointF> clickLocation() const { return m_clickLocation; }

    /// The laid-out text.
    const TextBlock &block() const;

    /// The area that takes clicks, before scaling: nine tenths of the canvas wide, or as wide as the widest
    /// line, and as high as the lines.
    QSizeF frameSize() const;

    /// Where the block's centre is at the moment, in points of the canvas.
    QPointF center() const;

    /// Whether the scaled frame contains a point of the canvas.
    Q_INVOKABLE bool contains(QPointF point) const;

    /// The factor by which the block is drawn at the moment.
    double drawnScale() const { return m_scale * m_currentScale; }

    /// The font of the letters, as large as they are laid out.
    QFont editorFont() const;

    QColor textColor() const;

    /// A drag that has moved this far since it began; endDrag() puts the block there, with its centre kept on
    /// the canvas.
    Q_INVOKABLE void drag(QSizeF translation);
    Q_INVOKABLE void endDrag();

    /// A magnify gesture that has come to this factor; changes of less than 0.01 are not taken. endMagnify()
    /// makes it the block's own.
    Q_INVOKABLE void magnify(double magnification);
    Q_INVOKABLE void endMagnify();

    /// Moves the block by so many points, its centre kept on the canvas.
    Q_INVOKABLE void nudge(double right, double down);

    /// Starts editing, if the block may be edited, with the caret at a point of the frame; without one at the
    /// end of the text.
    Q_INVOKABLE void doubleClick(QPointF location);
    Q_INVOKABLE void startEditing();

signals:
    void textChanged();
    void styleChanged();
    void isSubtitleChanged();
    void positionChanged();
    void scaleChanged();
    void containerSizeChanged();
    void boxColorChanged();
    void isEditableChanged();
    void dragOffsetChanged();
    void currentScaleChanged();
    void isFocusedChanged();
    void editorHeightChanged();
    void clickLocationChanged();

    /// The block has other lines, or lines of another look.
    void layoutChanged();
    void centerChanged();
    void drawnScaleChanged();

private:
    int styleNumber() const { return static_cast<int>(m_style); }
    void setStyleNumber(int style) { setStyle(static_cast<TextStyle>(style)); }
    QColor boxQColor() const;
    void setBoxQColor(const QColor &color);
    QVariant clickLocationOrUndefined() const;
    void setComposedText(const std::optional<QString> &text);
    void setClickLocation(std::optional<QPointF> location);
    void moveTo(QPointF points);

    template <typename T>
    void set(T &field, const T &value, void (DraggableTextView::*changed)())
    {
        if (field == value)
            return;
        field = value;
        emit(this->*changed)();
    }

    template <typename T>
    void setLayout(T &field, const T &value, void (DraggableTextView::*changed)())
    {
        if (field == value)
            return;
        field = value;
        m_block.reset();
        emit(this->*changed)();
        emit layoutChanged();
    }

    QString m_text;
    std::optional<QString> m_composedText;
    TextStyle m_style = TextStyle::classic;
    bool m_isSubtitle = false;
    QPointF m_position{0.5, 0.5};
    double m_scale = 1;
    QSizeF m_containerSize{0, 0};
    RgbaColor m_boxColor{1, 1, 1, 1};
    bool m_isEditable = false;
    QSizeF m_dragOffset{0, 0};
    double m_currentScale = 1;
    bool m_isFocused = false;
    double m_editorHeight = 40;
    std::optional<QPointF> m_clickLocation;
    mutable std::optional<TextBlock> m_block;
};

} // namespace mosslantern
