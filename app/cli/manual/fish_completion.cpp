#include "app/cli/manual/completion.h"
#include "app/cli/manual/completion_parts.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// %1: the options that take a value, %2: the first words of commands of two.
constexpr auto functions = R"sh(# fish completion for mosslantern-cli; made from the tool's own commands.

# Prints the command on the line, the number of its operands so far, and the library's folder, a line each.
function __mosslantern_cli_line
    set -l words (commandline -opc)
    set -l command
    set -l operands 0
    set -l folder
    set -l i 2
    while test $i -le (count $words)
        set -l word $words[$i]
        set i (math $i + 1)
        if string match -q -- '--library=*' $word
            set folder (string replace -- --library= '' $word)
        else if contains -- $word %1
            test $word = --library; and set folder $words[$i]
            set i (math $i + 1)
        else if string match -q -- '-?*' $word
            continue
        else if test -z "$command"; or contains -- "$command" %2
            set command (string trim -- "$command $word")
        else
            set operands (math $operands + 1)
        end
    end
    printf '%s\n' "$command" $operands "$folder"
end

# COMMAND [COUNT|COUNT+]: whether the line is at this command, with so many operands before.
function __mosslantern_cli_at
    set -l line (__mosslantern_cli_line)
    test "$line[1]" = "$argv[1]"; or return 1
    set -q argv[2]; or return 0
    string match -q '*+' $argv[2]; and test $line[2] -ge (string trim -r -c + $argv[2]); and return 0
    test $line[2] = $argv[2]
end

# KIND COLUMN: the names of the library that the line is about.
function __mosslantern_cli_names
    set -l folder (__mosslantern_cli_line)[3]
    set -l library
    test -n "$folder"; and set library --library $folder
    mosslantern-cli $library list $argv[1] 2>/dev/null | cut -f $argv[2]
end

complete -c mosslantern-cli -f
)sh"_L1;

/// What goes behind an option or operand to complete `kind`; empty for what cannot be completed.
QString argument(ValueKind kind)
{
    if (kind == ValueKind::file)
        return u" -F"_s;
    if (kind == ValueKind::folder)
        return u" -a '(__fish_complete_directories)'"_s;
    if (const QString list = listedNames(kind); !list.isEmpty())
        return u" -a '(__mosslantern_cli_names "_s + list + u")'"_s;
    const QStringList fixed = fixedValues(kind);
    return fixed.isEmpty() ? QString() : u" -a "_s + quoted(fixed.join(u' '));
}

QString rule(const QString &condition, const QString &rest)
{
    return u"complete -c mosslantern-cli -n "_s + quoted(condition) + rest + u'\n';
}

QString at(QStringView command, const QString &operands = {})
{
    return u"__mosslantern_cli_at \"%1\" %2"_s.arg(command, operands).trimmed();
}

QString optionRule(const QString &condition, const OptionSpec &option)
{
    const QString value = option.value;
    return rule(condition, u" -l "_s + option.name + (value.isEmpty() ? QString() : u" -r -f"_s) +
                               argument(valueKind(value)) + u" -d "_s + quoted(QString(option.help)));
}

} // namespace

QString fishCompletion(const std::vector<Command> &commands)
{
    QStringList takingValue{u"--library"_s};
    QStringList groups;
    QString rules = optionRule(at(u""), libraryOption) + optionRule(at(u""), helpOption) +
                    rule(at(u""), u" -l version -d 'show the version'"_s);
    for (const Command &command : commands) {
        const QString name = command.name;
        const QString first = name.section(u' ', 0, 0);
        const QString meaning = u" -d "_s + quoted(QString(command.summary));
        if (name == first) {
            rules += rule(at(u""), u" -a "_s + name + meaning);
        } else {
            if (!groups.contains(first))
                rules += rule(at(u""), u" -a "_s + first);
            groups.append(first);
            rules += rule(at(first), u" -a "_s + name.section(u' ', 1) + meaning);
        }
        for (const OptionSpec &option : allOptions(command)) {
            if (!option.value.isEmpty())
                takingValue.append(u"--"_s + option.name);
            rules += optionRule(at(name), option);
        }
        const std::vector<ValueKind> kinds = operandKinds(command);
        const QStringList fixed = fixedOperands(command);
        for (size_t i = 0; i < kinds.size(); ++i) {
            const bool repeats = i + 1 == kinds.size() && command.mostOperands > qsizetype(kinds.size());
            const QString values =
                i == 0 && !fixed.isEmpty() ? u" -a "_s + fixed.first() : argument(kinds[i]);
            if (!values.isEmpty())
                rules += rule(at(name, u"%1%2"_s.arg(i).arg(repeats ? u"+"_s : QString())), values);
        }
    }
    takingValue.removeDuplicates();
    groups.removeDuplicates();
    QString text = functions;
    return text.replace(u"%1"_s, takingValue.join(u' ')).replace(u"%2"_s, groups.join(u' ')) + rules;
}

} // namespace mosslantern
