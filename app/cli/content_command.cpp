#include "app/cli/commands.h"
#include "app/cli/output.h"
#include "app/cli/record_json.h"
#include "app/cli/text_input.h"
#include "content/json.h"
#include "content/slide_content.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// The operand, for messages.
QString nameOf(const Arguments &arguments)
{
    const QString file = arguments.positionals().first();
    return file == "-"_L1 ? u"standard input"_s : file;
}

/// Gives `use` the text of the operand; its error is about that text.
int withText(const Arguments &arguments, Result<> (*use)(const QString &text))
{
    const Result<QString> text = readText(arguments.positionals().first());
    if (!text)
        return failedWith(text.error());
    const Result<> used = use(*text);
    return used ? done : failedWith({nameOf(arguments) + u": "_s + used.error().message});
}

int parse(const Arguments &arguments)
{
    return withText(arguments, [](const QString &text) -> Result<> {
        const Result<QList<SlideText>> slides = readSlideContent(text);
        Json entries = Json::array();
        for (const SlideText &entry : slides.value_or(QList<SlideText>()))
            entries.push_back({{"main", toJson(entry.main)}, {"subtitle", toJson(entry.subtitle)}});
        writeJson(entries);
        return slides ? Result<>() : std::unexpected(slides.error());
    });
}

int check(const Arguments &arguments)
{
    return withText(arguments, [](const QString &text) -> Result<> {
        const Result<QList<SlideText>> slides = readSlideContent(text);
        if (!slides)
            return std::unexpected(slides.error());
        const qsizetype count = slides->size();
        const QString amount = u"%1 %2"_s.arg(count).arg(count == 1 ? u"slide" : u"slides");
        if (!isValidSlideContent(text))
            return fail(u"not a JSON document; as lines of text it gives "_s + amount);
        writeRow({u"valid, "_s + amount});
        return {};
    });
}

int prettify(const Arguments &arguments)
{
    return withText(arguments, [](const QString &text) -> Result<> {
        const QByteArray utf8 = text.toUtf8();
        const Result<JsonValue> json = JsonValue::parse(utf8);
        if (json && (json->kind() == JsonValue::Kind::object || json->kind() == JsonValue::Kind::array)) {
            writeOut(prettifySlideContent(text).toUtf8() + '\n');
            return {};
        }
        writeOut(utf8);
        return fail(u"left unchanged: "_s + (json ? u"no JSON object or array"_s : json.error().message));
    });
}

int fixNewlines(const Arguments &arguments)
{
    return withText(arguments, [](const QString &text) -> Result<> {
        writeOut(fixNewlinesInStrings(text).toUtf8());
        return {};
    });
}

Command contentCommand(QLatin1StringView name, QLatin1StringView summary, QLatin1StringView details,
                       int (*run)(const Arguments &))
{
    return {.name = name,
            .usage = "FILE|-"_L1,
            .fewestOperands = 1,
            .mostOperands = 1,
            .summary = summary,
            .details = details,
            .usesLibrary = false,
            .run = run};
}

} // namespace

std::vector<Command> contentCommands()
{
    return {
        contentCommand(
            "content parse"_L1, "print the slides of a slide text as JSON"_L1,
            "Reads slide texts, a JSON document or plain text with a slide on each line, and prints a "
            "JSON array of objects with the members \"main\" and \"subtitle\"."_L1,
            parse),
        contentCommand(
            "content check"_L1, "check that a slide text is a valid document"_L1,
            "Checks that a text is a JSON document of slides, and says where it is not. Exit status 0 "
            "for a valid document, 1 for anything else, plain text included."_L1,
            check),
        contentCommand(
            "content prettify"_L1, "print a JSON text in lines"_L1,
            "Prints any JSON object or array in lines, with members and numbers as they are. Another "
            "text is printed unchanged, with exit status 1."_L1,
            prettify),
        contentCommand("content fix-newlines"_L1, "repair raw line breaks in strings"_L1,
                       "Prints the text with every line break inside a JSON string as \"\\n\"."_L1,
                       fixNewlines),
    };
}

} // namespace mosslantern
