#include "app/cli/manual/value_kind.h"

#include <algorithm>
#include <utility>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// The words of the usage line that are operands: not in brackets, no option and no option's value.
QStringList operands(const Command &command)
{
    QStringList found;
    int depth = 0;
    bool isValue = false;
    for (const QString &word : QString(command.usage).split(u' ', Qt::SkipEmptyParts)) {
        const bool isInside = depth > 0 || word.startsWith(u'[') || word.startsWith(u'(');
        depth += int(word.count(u'[') + word.count(u'(') - word.count(u']') - word.count(u')'));
        if (word.startsWith("--"_L1))
            isValue = true;
        else if (!std::exchange(isValue, false) && !isInside)
            found.append(word);
    }
    // Of "render" they stand in brackets, once for each form.
    if (found.isEmpty() && command.takesPictures)
        found.append(u"FILE..."_s);
    return found;
}

bool isPlaceholder(QStringView word)
{
    return !word.isEmpty() && word.front().isUpper();
}

} // namespace

ValueKind valueKind(QStringView placeholder)
{
    static constexpr std::pair<QLatin1StringView, ValueKind> kinds[] = {
        {"FILE"_L1, ValueKind::file},
        {"IMAGE"_L1, ValueKind::file},
        {"DIR"_L1, ValueKind::folder},
        {"STYLE"_L1, ValueKind::style},
        {"SHAPE"_L1, ValueKind::shape},
        {"ASSET"_L1, ValueKind::asset},
        {"COLLECTION"_L1, ValueKind::collection},
        {"BATCH"_L1, ValueKind::batch},
        {"SLIDESHOW"_L1, ValueKind::slideshow},
        {"PRESET"_L1, ValueKind::preset},
        {"TEMPLATE"_L1, ValueKind::contentTemplate},
    };
    const auto kind = std::ranges::find_if(
        kinds, [&](const auto &candidate) { return placeholder.startsWith(candidate.first); });
    return kind == std::end(kinds) ? ValueKind::free : kind->second;
}

std::vector<ValueKind> operandKinds(const Command &command)
{
    std::vector<ValueKind> kinds;
    for (const QString &word : operands(command))
        kinds.push_back(isPlaceholder(word) ? valueKind(word) : ValueKind::free);
    return kinds;
}

QStringList fixedOperands(const Command &command)
{
    QStringList words = operands(command);
    words.removeIf([](const QString &word) { return isPlaceholder(word); });
    return words;
}

} // namespace mosslantern
