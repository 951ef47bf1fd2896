#include "model/console.h"
#include "tests/fuzz/target.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtGui/QGuiApplication>

using namespace mosslantern;

/// Tries every file below the given folders; fails when there is none.
int main(int count, char **arguments)
{
    const QGuiApplication application(count, arguments);
    setConsoleStream(std::fopen("/dev/null", "w"));
    int tried = 0;
    for (int i = 1; i < count; ++i) {
        QDirIterator files(QFile::decodeName(arguments[i]), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly))
                return 1;
            std::printf("%s\n", qPrintable(file.fileName()));
            std::fflush(stdout);
            tryBytes(file.readAll());
            ++tried;
        }
    }
    std::printf("%d files\n", tried);
    return tried > 0 ? 0 : 1;
}
