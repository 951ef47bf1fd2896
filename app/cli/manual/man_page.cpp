#include "app/cli/manual/man_page.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// `text` as troff shows it, wherever it stands in a line.
QString troff(QString text)
{
    text.replace(u'\\', u"\\e"_s)
        .replace(u'-', u"\\-"_s)
        .replace(u'"', u"\\(dq"_s)
        .replace(u'\'', u"\\(aq"_s);
    return text.startsWith(u'.') ? u"\\&"_s + text : text;
}

/// `text` in paragraphs, one for each of its lines.
QString paragraphs(const QString &text)
{
    QString result;
    for (const QString &line : text.split(u'\n'))
        result += u".PP\n"_s + troff(line) + u'\n';
    return result;
}

QString tagged(const QString &term, const QString &meaning)
{
    return u".TP\n"_s + term + u'\n' + troff(meaning) + u'\n';
}

QString optionTerm(const OptionSpec &option)
{
    QString term = u"\\fB"_s + troff(u"--"_s + option.name) + u"\\fR"_s;
    if (!option.value.isEmpty())
        term += u" \\fI"_s + troff(option.value) + u"\\fR"_s;
    return term;
}

QString option(const OptionSpec &option)
{
    return tagged(optionTerm(option), option.help);
}

QString heading(const QString &name, const QString &what)
{
    return u".TH "_s + troff(name.toUpper()) +
           u" 1 \"\" \"Mosslantern " MOSSLANTERN_VERSION "\" \"User Commands\"\n.SH NAME\n"_s + troff(name) +
           u" \\- "_s + troff(what) + u'\n';
}

QString environmentAndFiles()
{
    return u".SH FILES\n"_s +
           tagged(
               u"\\fI~/.local/share/Mosslantern/library.sqlite\\fR"_s,
               u"The library: all records, readable by their owner alone. Below $XDG_DATA_HOME where that is set."_s) +
           tagged(u"\\fIAssets\\fR and \\fISlideshows\\fR in the documents folder"_s,
                  u"The imported pictures, and a picture of its own for each slide. Nothing there is ever "
                  u"changed "
                  "or deleted."_s) +
           tagged(
               u"\\fI~/.config/Mosslantern\\fR"_s,
               u"The preferences, readable by their owner alone. Below $XDG_CONFIG_HOME where that is set."_s) +
           u".SH ENVIRONMENT\n"_s +
           tagged(u"\\fBOPENAI_API_KEY\\fR"_s,
                  u"The key for the AI service, where the preference openAiApiKey is empty."_s) +
           tagged(u"\\fBOPENAI_BASE_URL\\fR"_s, u"Another server that understands the same requests."_s);
}

} // namespace

QString toolManual(const std::vector<Command> &commands)
{
    QString text =
        heading(u"mosslantern-cli"_s, u"make slideshows of pictures with texts on them"_s) +
        u".SH SYNOPSIS\n\\fBmosslantern\\-cli\\fR [\\fB\\-\\-library\\fR \\fIDIR\\fR] \\fICOMMAND\\fR "
        "[\\fIOPTION\\fR...] [\\fIARGUMENT\\fR...]\n.SH DESCRIPTION\n"
        "Imports photographs, makes batches of slideshows from slide texts, and exports them as PNG files. "
        "It needs no display. Its library is that of\n.BR mosslantern (1),\n"
        "which must not be open in a window meanwhile.\n.SH OPTIONS\n"_s +
        option(libraryOption) + option(helpOption) +
        tagged(u"\\fB\\-\\-version\\fR"_s, u"show the version"_s) + u".SH COMMANDS\n"_s;
    for (const Command &command : commands) {
        text += u".SS "_s + troff(command.name) + u"\n.B "_s + troff(command.name) + u"\n"_s +
                troff(command.usage) + u'\n' + paragraphs(command.details);
        for (const OptionSpec &spec : command.options)
            text += option(spec);
    }
    return text + u".SH \"EXIT STATUS\"\n"_s + tagged(u"0"_s, u"All is done."_s) +
           tagged(u"1"_s, u"Something failed; what did not fail is done."_s) +
           tagged(u"2"_s, u"The command line is wrong; nothing has been done."_s) +
           tagged(u"129, 130, 143"_s, u"Ended by SIGHUP, SIGINT or SIGTERM: what is finished is kept."_s) +
           tagged(u"141"_s, u"The reader of standard output went away."_s) + environmentAndFiles() +
           u".SH EXAMPLES\n"
           "From photographs to slides in one line, without a library:\n.PP\n.nf\n.RS\n"
           "mosslantern\\-cli make \\-\\-images photos \\-\\-content texts.txt \\-\\-out slides \\-\\-count "
           "3\n"
           ".RE\n.fi\n.PP\nThe same with your library, step by step:\n.PP\n.nf\n.RS\n"
           "mosslantern\\-cli import photos/*.jpg\n"
           "mosslantern\\-cli generate \\-\\-content texts.txt \\-\\-count 3 \\-\\-batch\\-name May\n"
           "mosslantern\\-cli export \\-\\-batch May \\-\\-to slides\n"
           ".RE\n.fi\n.PP\nThe key for the AI service, where no other user can see it:\n.PP\n.nf\n.RS\n"
           "mosslantern\\-cli preferences set openAiApiKey \\- < key.txt\n.RE\n.fi\n"
           ".SH \"SEE ALSO\"\n.BR mosslantern (1)\n"_s;
}

QString windowManual()
{
    return heading(u"mosslantern"_s, u"text-on-image slideshows by the dozen"_s) +
           u".SH SYNOPSIS\n\\fBmosslantern\\fR [\\fIOPTION\\fR...] [\\fIPICTURE\\fR|\\fIFOLDER\\fR...]\n"
           ".SH DESCRIPTION\n"
           "Opens the window in which photographs are imported and grouped, slide texts written, whole "
           "batches of "
           "slideshows generated, edited on a canvas and exported as folders of PNG files. The pictures "
           "that are given, and those in the folders that are, are imported. Where a window has the library "
           "open already, that one comes to the front and imports them.\n"
           ".SH OPTIONS\n"_s +
           option(libraryOption) +
           tagged(
               u"\\fB\\-\\-screen\\fR \\fINAME\\fR"_s,
               u"Begin with this screen: assets, collections, create or history. A window that is open goes "
               "there, too, unless it waits for an answer or has work under way."_s) +
           option(helpOption) + tagged(u"\\fB\\-\\-version\\fR"_s, u"show the version"_s) +
           u".SH \"EXIT STATUS\"\n"_s + tagged(u"0"_s, u"The window was closed, or another one raised."_s) +
           tagged(u"1"_s, u"No window could be opened, or only one that says why."_s) +
           environmentAndFiles() +
           tagged(u"\\fBMOSSLANTERN_UPDATE_FEED\\fR"_s,
                  u"The address of the feed that announces new versions, HTTPS only; empty for none."_s) +
           u".SH \"SEE ALSO\"\n.BR mosslantern\\-cli (1)\n"_s;
}

} // namespace mosslantern
