#include "model/console.h"
#include "tests/fuzz/target.h"

#include <QtGui/QGuiApplication>

#include <cstdint>

using namespace mosslantern;

extern "C" int LLVMFuzzerInitialize(int *count, char ***arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*count, *arguments);
    setConsoleStream(std::fopen("/dev/null", "w"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    tryBytes(QByteArrayView(data, static_cast<qsizetype>(size)));
    return 0;
}
