#pragma once

#include <QtCore/QObject>
#include <QtGui/QColor>
#include <QtQml/QQmlParserStatus>
#include <QtQml/qqmlregistration.h>

namespace mosslantern {

/// The look of the panels that Qt draws itself, which do not know the theme of the screens.
class PanelLook : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    QML_ELEMENT
    Q_INTERFACES(QQmlParserStatus)
    Q_PROPERTY(QColor window MEMBER m_window REQUIRED)
    Q_PROPERTY(QColor base MEMBER m_base REQUIRED)
    Q_PROPERTY(QColor button MEMBER m_button REQUIRED)
    Q_PROPERTY(QColor text MEMBER m_text REQUIRED)
    Q_PROPERTY(QColor disabledText MEMBER m_disabledText REQUIRED)
    Q_PROPERTY(QColor highlight MEMBER m_highlight REQUIRED)
    Q_PROPERTY(QColor highlightedText MEMBER m_highlightedText REQUIRED)
    /// Of the font, in points of the screen.
    Q_PROPERTY(int fontSize MEMBER m_fontSize REQUIRED)

public:
    explicit PanelLook(QObject *parent = nullptr)
        : QObject(parent)
    {}

    void classBegin() override {}
    void componentComplete() override;

private:
    QColor m_window;
    QColor m_base;
    QColor m_button;
    QColor m_text;
    QColor m_disabledText;
    QColor m_highlight;
    QColor m_highlightedText;
    int m_fontSize = 0;
};

} // namespace mosslantern
