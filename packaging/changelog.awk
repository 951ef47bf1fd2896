# Turns CHANGELOG.md into another form:
#   awk -v form=debian|releases|feed -v package=NAME -v page=ADDRESS -f changelog.awk CHANGELOG.md
# debian: the changelog of a package; releases: those of the AppStream metainfo; feed: what the updater reads.

function escaped(text) {
  gsub(/&/, "\\&amp;", text); gsub(/</, "\\&lt;", text); gsub(/>/, "\\&gt;", text)
  return text
}

function longDate(date,    command, result) {
  command = "LC_ALL=C date -u -R -d " date
  command | getline result
  close(command)
  return result
}

# `text` in lines of at most 76 characters, the first after "  * ".
function item(text,    words, count, i, line) {
  count = split(text, words, " ")
  line = "  *"
  for (i = 1; i <= count; ++i) {
    if (length(line) + 1 + length(words[i]) > 76) { print line; line = "   " }
    line = line " " words[i]
  }
  print line
}

function finish(    i) {
  if (version == "") return
  if (form == "debian") {
    printf "%s (%s) unstable; urgency=medium\n\n", package, version
    for (i = 1; i <= count; ++i) item(entries[i])
    printf "\n -- The Mosslantern developers <developers@mosslantern.example>  %s\n\n", longDate(date)
  } else if (form == "releases") {
    printf "    <release version=\"%s\" date=\"%s\">\n      <description>\n        <ul>\n", version, date
    for (i = 1; i <= count; ++i) print "          <li>" escaped(entries[i]) "</li>"
    print "        </ul>\n      </description>\n    </release>"
  } else {
    print "    <item>"
    print "      <title>Mosslantern " version "</title>"
    print "      <link>" page "/releases/" version "</link>"
    print "      <sparkle:version>" version "</sparkle:version>"
    print "      <pubDate>" longDate(date) "</pubDate>"
    print "      <description><![CDATA[<ul>"
    for (i = 1; i <= count; ++i) print "<li>" escaped(entries[i]) "</li>"
    print "</ul>]]></description>"
    print "    </item>"
  }
  count = 0
}

BEGIN {
  if (form == "feed") {
    print "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
    print "<rss version=\"2.0\" xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">"
    print "  <channel>\n    <title>Mosslantern</title>\n    <link>" page "</link>"
    print "    <description>Releases of Mosslantern</description>"
  }
}

/^## \[[0-9]/ {
  finish()
  version = $2; gsub(/[][]/, "", version)
  date = $4
}
/^- / { entries[++count] = substr($0, 3) }
# An entry goes on.
/^  [^ ]/ && count { entries[count] = entries[count] " " substr($0, 3) }

END {
  finish()
  if (form == "feed") print "  </channel>\n</rss>"
}
