#include "app/cli/manual/completion.h"
#include "app/cli/manual/completion_parts.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// Goes in front: what does not depend on the commands. Names may hold blanks and colons, so they are
/// compared and escaped one by one.
constexpr auto functions = R"sh(# bash completion for mosslantern-cli; made from the tool's own commands.
# shellcheck shell=bash

# KIND COLUMN: the names of the library that the command line is about.
_mosslantern_cli_names() {
  local -a library=()
  [ -z "$library_dir" ] || library=(--library "$library_dir")
  mosslantern-cli "${library[@]}" list "$1" 2>/dev/null | cut -f "$2"
}

# Offers those lines of standard input that begin with what is typed.
_mosslantern_cli_offer() {
  local line typed=$cur quote=''
  case $typed in
    \"* | \'*) quote=${typed:0:1} typed=${typed:1} ;;
    *) typed=${typed//\\/} ;;
  esac
  while IFS= read -r line; do
    [[ $line == "$typed"* ]] || continue
    if [ "$quote" = "'" ]; then line=\'${line//\'/\'\\\'\'}
    elif [ -n "$quote" ]; then line=\"${line//[\"]/\\\"}
    else printf -v line %q "$line"
    fi
    COMPREPLY+=("$line")
  done
}

# VALUE: completes a value of this kind.
_mosslantern_cli_value() {
  case $1 in
    @file) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- "$cur") ;;
    @folder) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- "$cur") ;;
    @*) read -r kind column <<<"${1#@}"; _mosslantern_cli_offer < <(_mosslantern_cli_names "$kind" "$column") ;;
    *) _mosslantern_cli_offer < <(printf '%s' "${1:+${1// /$'\n'}$'\n'}") ;;
  esac
}
)sh"_L1;

/// Finds the command among the words before the one that is being typed.
constexpr auto mainFunction = R"sh(
_mosslantern_cli() {
  local cur prev words cword
  _init_completion -n =: || return
  local command='' library_dir='' kind column i operands=0 only=''
  for ((i = 1; i < cword; ++i)); do
    case ${words[i]} in
      --library) library_dir=${words[i + 1]-}; ((++i)) ;;
      --library=*) library_dir=${words[i]#*=} ;;
      --) only=1 ;;
      -?*) [ -n "$only" ] || _mosslantern_cli_takes_value "$command ${words[i]}" || continue; ((++i)) ;;
      *)
        if _mosslantern_cli_is_command "${command:+$command }${words[i]}"; then command+=${command:+ }${words[i]}
        else ((++operands))
        fi
        ;;
    esac
  done
  if [[ $cur == --*=* && -z $only ]]; then
    prev=${cur%%=*} cur=${cur#*=}
  elif [[ $cur == -* && -z $only ]]; then
    _mosslantern_cli_value "$(_mosslantern_cli_options "$command")"
    return
  fi
  if [ "$prev" = --library ]; then _mosslantern_cli_value @folder
  elif [[ $prev == --* && -z $only ]] && _mosslantern_cli_takes_value "$command $prev"; then
    _mosslantern_cli_value "$(_mosslantern_cli_option_value "$command $prev")"
  else _mosslantern_cli_value "$(_mosslantern_cli_operand "$command" "$operands")"
  fi
  __ltrim_colon_completions "$cur"
}
complete -F _mosslantern_cli mosslantern-cli
)sh"_L1;

/// What _mosslantern_cli_value understands.
QString valueText(ValueKind kind)
{
    if (kind == ValueKind::file)
        return u"@file"_s;
    if (kind == ValueKind::folder)
        return u"@folder"_s;
    if (const QString list = listedNames(kind); !list.isEmpty())
        return u'@' + list;
    return fixedValues(kind).join(u' ');
}

QString optionWords(const std::vector<OptionSpec> &options)
{
    QStringList words;
    for (const OptionSpec &option : options)
        words.append(u"--"_s + option.name);
    return words.join(u' ');
}

/// A function that prints the value of the first pattern that its argument matches.
QString table(const QString &name, const QString &subject, const QList<std::pair<QString, QString>> &rows,
              const QString &otherwise = {})
{
    QString text = u"\n"_s + name + u"() {\n  case "_s + subject + u" in\n"_s;
    for (const auto &[pattern, value] : rows)
        text += u"    "_s + pattern + u") echo "_s + quoted(value) + u" ;;\n"_s;
    if (!otherwise.isEmpty())
        text += u"    *) "_s + otherwise + u" ;;\n"_s;
    return text + u"  esac\n}\n"_s;
}

/// A function that succeeds when its argument is one of `words`.
QString test(const QString &name, const QStringList &words)
{
    QStringList patterns;
    for (const QString &word : words)
        patterns.append(quoted(word));
    return u"\n"_s + name + u"() {\n  case $1 in\n    "_s + patterns.join(u" | \\\n    "_s) +
           u") return 0 ;;\n  esac\n  return 1\n}\n"_s;
}

} // namespace

QString bashCompletion(const std::vector<Command> &commands)
{
    QStringList names = firstWords(commands);
    QList<std::pair<QString, QString>> options{
        {u"''"_s, optionWords({libraryOption, helpOption}) + u" --version"_s}};
    QStringList takingValue;
    QList<std::pair<QString, QString>> values;
    QList<std::pair<QString, QString>> operands{{u"' 0'"_s, names.join(u' ')}};
    for (const QString &first : firstWords(commands)) {
        QStringList seconds;
        for (const Command &command : commands) {
            if (command.name.startsWith(first + u' '))
                seconds.append(command.name.sliced(first.size() + 1));
        }
        if (!seconds.isEmpty())
            operands.append({quoted(first + u" 0"_s), seconds.join(u' ')});
    }
    for (const Command &command : commands) {
        names.append(command.name);
        options.append({quoted(QString(command.name)), optionWords(allOptions(command))});
        for (const OptionSpec &option : allOptions(command)) {
            const QString place = command.name + u" --"_s + option.name;
            if (!option.value.isEmpty())
                takingValue.append(place);
            if (const QString value = valueText(valueKind(QString(option.value))); !value.isEmpty())
                values.append({quoted(place), value});
        }
        const std::vector<ValueKind> kinds = operandKinds(command);
        const QStringList fixed = fixedOperands(command);
        for (size_t i = 0; i < kinds.size(); ++i) {
            const bool repeats = i + 1 == kinds.size() && command.mostOperands > qsizetype(kinds.size());
            const QString value = i == 0 && !fixed.isEmpty() ? fixed.first() : valueText(kinds[i]);
            const QString pattern =
                repeats ? quoted(command.name + u" "_s) + u'*' : quoted(command.name + u" %1"_s.arg(i));
            if (!value.isEmpty())
                operands.append({pattern, value});
        }
    }
    names.removeDuplicates();
    return functions + test(u"_mosslantern_cli_is_command"_s, names) +
           test(u"_mosslantern_cli_takes_value"_s, takingValue) +
           table(u"_mosslantern_cli_options"_s, u"$1"_s, options, u"echo --help"_s) +
           table(u"_mosslantern_cli_option_value"_s, u"$1"_s, values) +
           table(u"_mosslantern_cli_operand"_s, u"\"$1 $2\""_s, operands) + mainFunction;
}

} // namespace mosslantern
