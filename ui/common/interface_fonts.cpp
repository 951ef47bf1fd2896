#include "ui/common/interface_fonts.h"

#include "render/text/fonts.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>

namespace mosslantern {

using namespace Qt::StringLiterals;

Result<> registerInterfaceFonts()
{
    if (const Result<> registered = registerFonts(); !registered)
        return registered;
    const auto monospaced = u":/mosslantern/fonts/JetBrainsMono-Regular.ttf"_s;
    if (QFontDatabase::addApplicationFont(monospaced) < 0)
        return fail(u"The built-in font JetBrainsMono-Regular.ttf cannot be used."_s);
    return {};
}

void useInterfaceFont()
{
    for (const QString &family : {u"Inter"_s, u"JetBrains Mono"_s})
        QFont::insertSubstitution(family, u"Noto Color Emoji"_s);

    QFont body(u"Inter"_s);
    body.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(body);
}

} // namespace mosslantern
