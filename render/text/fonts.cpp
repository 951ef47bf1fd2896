#include "render/text/fonts.h"

#include <QtCore/QResource>
#include <QtGui/QFontDatabase>

#include <cmath>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr double emojiEnlargement = 1.245 / 1.06;

struct Face
{
    QString family;
    QFont::Weight weight;
};

Face face(TextStyle style)
{
    switch (style) {
    case TextStyle::classic:
        return {u"Nunito"_s, QFont::Black};
    case TextStyle::boxed:
        return {u"Inter"_s, QFont::Bold};
    case TextStyle::modern:
        return {u"Inter"_s, QFont::Black};
    case TextStyle::neon:
        return {u"JetBrains Mono"_s, QFont::Bold};
    }
    Q_UNREACHABLE();
}

int layoutPixels(double size)
{
    return std::max(1, static_cast<int>(std::lround(size * layoutFactor)));
}

} // namespace

Result<> registerFont(const QString &fileName)
{
    // Its data stays where it is in the program; by its name Qt would read a copy.
    const QResource file(u":/mosslantern/fonts/"_s + fileName);
    if (QFontDatabase::addApplicationFontFromData(file.uncompressedData()) < 0)
        return fail(u"The built-in font %1 cannot be used."_s.arg(fileName));
    return {};
}

Result<> registerFonts()
{
    for (const QString &name :
         {u"Nunito-Black.ttf"_s, u"Inter-Regular.otf"_s, u"Inter-Medium.otf"_s, u"Inter-SemiBold.otf"_s,
          u"Inter-Bold.otf"_s, u"Inter-Black.otf"_s, u"JetBrainsMono-Bold.ttf"_s}) {
        if (const Result<> registered = registerFont(name); !registered)
            return registered;
    }
    if (!QFontDatabase::hasFamily(u"Noto Color Emoji"_s))
        return fail(
            u"The font “Noto Color Emoji” is not installed (Debian package fonts-noto-color-emoji)."_s);
    return {};
}

QFont layoutFont(TextStyle style, double size)
{
    const Face styleFace = face(style);
    QFont font(styleFace.family);
    font.setWeight(styleFace.weight);
    font.setPixelSize(layoutPixels(size));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QFont fallbackLayoutFont(const QFont &layoutFont, const QString &family)
{
    QFont font(layoutFont);
    font.setFamilies({family});
    font.setStyleStrategy(QFont::NoFontMerging);
    return font;
}

QFont emojiLayoutFont(double size)
{
    QFont font(u"Noto Color Emoji"_s);
    font.setPixelSize(layoutPixels(size * emojiEnlargement));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoFontMerging);
    return font;
}

} // namespace mosslantern
