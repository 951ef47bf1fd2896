#include "tests/ui/generator/generator_test.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

void GeneratorTest::openScreen(int assets)
{
    for (int i = 0; i < assets; ++i)
        session().library().addAsset(u"asset %1"_s.arg(i));
    session().open();
    QVERIFY(session().click(u"sidebarRow2"_s));
}

QVariant GeneratorTest::property(const QString &objectName, const char *name)
{
    const QQuickItem *const item = session().find(objectName);
    return item ? item->property(name) : QVariant();
}

void GeneratorTest::scrollTo(const QString &objectName)
{
    settle();
    QQuickItem *const panel = session().find(u"generatorPanel"_s);
    const QQuickItem *const item = session().find(objectName);
    QVERIFY2(item, qPrintable(objectName));
    const double end = panel->property("contentHeight").toDouble() - panel->height();
    const double y = panel->property("contentY").toDouble() + item->mapToItem(panel, QPointF()).y() - 100;
    panel->setProperty("contentY", std::clamp(y, 0.0, end));
    settle();
}

bool GeneratorTest::clickInPanel(const QString &objectName)
{
    scrollTo(objectName);
    return session().click(objectName);
}

void GeneratorTest::setFocus(const QString &objectName)
{
    session().find(objectName)->forceActiveFocus(Qt::TabFocusReason);
    settle();
}

} // namespace mosslantern
