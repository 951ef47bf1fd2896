#include "ui/common/interface_fonts.h"

#include "render/text/fonts.h"

#include <QtGui/QGuiApplication>

namespace mosslantern {

using namespace Qt::StringLiterals;

Result<> useInterfaceFonts()
{
    if (const Result<> registered = registerFonts(); !registered)
        return registered;
    if (const Result<> registered = registerFont(u"JetBrainsMono-Regular.ttf"_s); !registered)
        return registered;

    for (const QString &family : {u"Inter"_s, u"JetBrains Mono"_s})
        QFont::insertSubstitution(family, u"Noto Color Emoji"_s);

    QFont body(u"Inter"_s);
    body.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(body);
    return {};
}

} // namespace mosslantern
