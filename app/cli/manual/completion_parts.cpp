#include "app/cli/manual/completion_parts.h"

#include "model/aspect_ratio.h"
#include "model/text_style.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

std::vector<OptionSpec> allOptions(const Command &command)
{
    std::vector<OptionSpec> options = command.options;
    if (command.usesLibrary)
        options.push_back(libraryOption);
    options.push_back(helpOption);
    return options;
}

QStringList firstWords(const std::vector<Command> &commands)
{
    QStringList words;
    for (const Command &command : commands)
        words.append(QString(command.name).section(u' ', 0, 0));
    words.removeDuplicates();
    return words;
}

QStringList fixedValues(ValueKind kind)
{
    QStringList values;
    if (kind == ValueKind::style) {
        for (const TextStyle style : allTextStyles)
            values.append(rawText(style));
    } else if (kind == ValueKind::shape) {
        for (const AspectRatio shape : allAspectRatios)
            values.append(rawText(shape));
    }
    return values;
}

QString listedNames(ValueKind kind)
{
    switch (kind) {
    case ValueKind::asset:
        return u"assets 2"_s;
    case ValueKind::collection:
        return u"collections 2"_s;
    case ValueKind::batch:
        return u"batches 1"_s;
    case ValueKind::slideshow:
        return u"slideshows 1"_s;
    case ValueKind::preset:
        return u"presets 2"_s;
    case ValueKind::contentTemplate:
        return u"templates 2"_s;
    default:
        return {};
    }
}

QString quoted(QStringView text)
{
    return u'\'' + text.toString().replace(u'\'', u"'\\''"_s) + u'\'';
}

} // namespace mosslantern
