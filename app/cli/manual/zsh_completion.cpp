#include "app/cli/manual/completion.h"
#include "app/cli/manual/completion_parts.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr auto functions = R"sh(#compdef mosslantern-cli
# zsh completion for mosslantern-cli; made from the tool's own commands.

# KIND COLUMN: the names of the library that the command line is about.
_mosslantern_cli_names() {
  local -a library names
  local folder=${opt_args[--library]:-$library_dir}
  [[ -z $folder ]] || library=(--library ${(Q)folder})
  names=(${(f)"$(mosslantern-cli $library list $1 2>/dev/null | cut -f $2)"})
  compadd -a names
}
)sh"_L1;

QString escaped(QString text, QLatin1StringView special)
{
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        if (QString(special).contains(text[i]))
            text.insert(i, u'\\');
    }
    return text;
}

/// What completes a value of `kind`, called `name` in messages.
QString action(const QString &name, ValueKind kind)
{
    const QString message = escaped(name, ":"_L1) + u':';
    if (kind == ValueKind::file)
        return message + u"_files"_s;
    if (kind == ValueKind::folder)
        return message + u"_files -/"_s;
    if (const QString list = listedNames(kind); !list.isEmpty())
        return message + u"_mosslantern_cli_names "_s + list;
    const QStringList fixed = fixedValues(kind);
    return message + (fixed.isEmpty() ? u" "_s : u'(' + escaped(fixed.join(u' '), ":"_L1) + u')');
}

QString optionSpec(const OptionSpec &option)
{
    const QString help = u'[' + escaped(option.help, "[]:"_L1) + u']';
    if (option.value.isEmpty())
        return quoted(u"--"_s + option.name + help);
    const QString value = option.value;
    return quoted(u"--"_s + option.name + u'=' + help + u':' + action(value, valueKind(value)));
}

QString operandSpecs(const Command &command)
{
    QString specs;
    const std::vector<ValueKind> kinds = operandKinds(command);
    const QStringList fixed = fixedOperands(command);
    for (size_t i = 0; i < kinds.size(); ++i) {
        const bool repeats = i + 1 == kinds.size() && command.mostOperands > qsizetype(kinds.size());
        const QString place = repeats ? u"*:"_s : u"%1:"_s.arg(i + 1);
        const QString spec =
            i == 0 && !fixed.isEmpty() ? u" :("_s + fixed.join(u' ') + u')' : action(u"argument"_s, kinds[i]);
        specs += u" \\\n        "_s + quoted(place + spec);
    }
    return specs;
}

/// Words that can come next, with what they mean.
QString described(const QList<std::pair<QString, QString>> &words)
{
    QStringList entries;
    for (const auto &[word, meaning] : words)
        entries.append(word + u"\\:"_s + escaped(u'"' + meaning + u'"', ":()"_L1));
    return quoted(u"1: :(("_s + entries.join(u' ') + u"))"_s);
}

} // namespace

QString zshCompletion(const std::vector<Command> &commands)
{
    QList<std::pair<QString, QString>> first;
    QString cases;
    for (const QString &word : firstWords(commands)) {
        QList<std::pair<QString, QString>> second;
        QString inner;
        for (const Command &command : commands) {
            QString specs;
            for (const OptionSpec &option : allOptions(command))
                specs += u" \\\n        "_s + optionSpec(option);
            specs += operandSpecs(command);
            if (command.name == word) {
                first.append({word, command.summary});
                cases += u"    "_s + word + u")\n      _arguments"_s + specs + u"\n      ;;\n"_s;
            } else if (command.name.startsWith(word + u' ')) {
                const QString name = command.name.sliced(word.size() + 1);
                second.append({name, command.summary});
                inner += u"        "_s + name + u")\n      _arguments"_s + specs + u"\n      ;;\n"_s;
            }
        }
        if (second.isEmpty())
            continue;
        first.append({word, u"several commands"_s});
        cases += u"    "_s + word + u")\n      _arguments -C "_s + described(second) +
                 u" '*:: :->command'\n      case $line[1] in\n"_s + inner + u"      esac\n      ;;\n"_s;
    }
    return functions +
           u"\n_mosslantern_cli() {\n  local context state line library_dir\n"
           "  typeset -A opt_args\n  _arguments -C \\\n    "_s +
           optionSpec(libraryOption) + u" \\\n    "_s + optionSpec(helpOption) +
           u" \\\n    '--version[show the version]' \\\n    "_s + described(first) +
           u" '*:: :->command'\n  [[ $state == command ]] || return\n"
           "  library_dir=$opt_args[--library]\n  case $line[1] in\n"_s +
           cases + u"  esac\n}\n\n_mosslantern_cli \"$@\"\n"_s;
}

} // namespace mosslantern
