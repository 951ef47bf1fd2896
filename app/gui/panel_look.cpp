#include "app/gui/panel_look.h"

#include <QtGui/QFont>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

namespace mosslantern {

void PanelLook::componentComplete()
{
    QPalette palette(m_button, m_window);
    palette.setColor(QPalette::Base, m_base);
    palette.setColor(QPalette::Highlight, m_highlight);
    palette.setColor(QPalette::HighlightedText, m_highlightedText);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, m_text);
        palette.setColor(QPalette::Disabled, role, m_disabledText);
    }
    QGuiApplication::setPalette(palette);

    QFont font = QGuiApplication::font();
    font.setPixelSize(m_fontSize);
    QGuiApplication::setFont(font);
}

} // namespace mosslantern
