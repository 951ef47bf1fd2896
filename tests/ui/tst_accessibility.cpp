// What assistive tools see of the window and can do in it, and whether texts stand out from their ground.

#include "tests/table.h"
#include "tests/ui/generator/generator_test.h"

#include <QtGui/QAccessible>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface *interfaceOf(QQuickItem *item)
{
    return item ? QAccessible::queryAccessibleInterface(item) : nullptr;
}

bool act(QQuickItem *item, const QString &action)
{
    QAccessibleInterface *const found = interfaceOf(item);
    QAccessibleActionInterface *const actions = found ? found->actionInterface() : nullptr;
    if (!actions || !actions->actionNames().contains(action))
        return false;
    actions->doAction(action);
    return true;
}

bool isControl(QAccessible::Role role)
{
    constexpr std::array controls{QAccessible::Button,   QAccessible::CheckBox,     QAccessible::RadioButton,
                                  QAccessible::Slider,   QAccessible::EditableText, QAccessible::ComboBox,
                                  QAccessible::MenuItem, QAccessible::ListItem,     QAccessible::PageTab,
                                  QAccessible::List,     QAccessible::PageTabList,  QAccessible::Dialog};
    return std::ranges::find(controls, role) != controls.end();
}

/// What is wrong with the visible controls below `parent`.
QStringList faultsBelow(QAccessibleInterface *parent)
{
    QStringList faults;
    for (int i = 0; i < parent->childCount(); ++i) {
        QAccessibleInterface *const child = parent->child(i);
        const auto *const item = child ? qobject_cast<QQuickItem *>(child->object()) : nullptr;
        if (item && item->isVisible() && isControl(child->role())) {
            const QString name = child->text(QAccessible::Name);
            const QString what = u"%1 '%2' (%3)"_s.arg(child->role(), 0, 16).arg(item->objectName(), name);
            if (name.isEmpty())
                faults.append(what + u" has no name"_s);
            if (child->state().disabled == item->isEnabled())
                faults.append(what + u" says the wrong thing of being enabled"_s);
            if (child->state().disabled && child->actionInterface())
                faults.append(what + u" can be acted on"_s);
        }
        if (child)
            faults.append(faultsBelow(child));
    }
    return faults;
}

double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor laidOver(const QColor &top, const QColor &ground, double opacity = 1)
{
    const auto a = static_cast<float>(top.alphaF() * opacity);
    return QColor::fromRgbF(top.redF() * a + ground.redF() * (1 - a),
                            top.greenF() * a + ground.greenF() * (1 - a),
                            top.blueF() * a + ground.blueF() * (1 - a));
}

double contrast(const QColor &text, const QColor &ground)
{
    const double a = luminance(laidOver(text, ground));
    const double b = luminance(ground);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

} // namespace

class AccessibilityTest : public GeneratorTest
{
    Q_OBJECT

private slots:
    void setsWhatToolsSet();
    void opensMenusAndPickers();
    void everyControlTellsWhatItIs();
    void textsStandOut_data();
    void textsStandOut();

private:
    QString faults()
    {
        return faultsBelow(QAccessible::queryAccessibleInterface(session().window())).join(u'\n');
    }
};

void AccessibilityTest::setsWhatToolsSet()
{
    QAccessible::setActive(true);
    openScreen(2);
    QAccessibleInterface *const bulk = interfaceOf(session().find(u"bulkCountSlider"_s));
    QVERIFY(bulk && bulk->valueInterface());
    bulk->valueInterface()->setCurrentValue(12);
    QCOMPARE(generator().bulkCount(), 12);
    QVERIFY(act(session().find(u"bulkCountSlider"_s), QAccessibleActionInterface::increaseAction()));
    QCOMPARE(generator().bulkCount(), 13);
    QVERIFY(act(session().find(u"bulkCountSlider"_s), QAccessibleActionInterface::decreaseAction()));
    QCOMPARE(generator().bulkCount(), 12);
    QCOMPARE(bulk->valueInterface()->currentValue(), 12);
    generator().setBulkCount(20);
    QCOMPARE(bulk->valueInterface()->currentValue(), 20);
    // What is shown without being picked is left alone.
    generator().setBulkCount(80);
    QCOMPARE(generator().bulkCount(), 80);

    QQuickItem *const isAi = session().find(u"aiSwitch"_s);
    for (const QString &action :
         {QAccessibleActionInterface::toggleAction(), QAccessibleActionInterface::pressAction()}) {
        const bool before = generator().isAiMode();
        QVERIFY2(act(isAi, action), qPrintable(action));
        QCOMPARE(generator().isAiMode(), !before);
        QCOMPARE(bool(interfaceOf(isAi)->state().checked), !before);
    }
    QVERIFY(act(session().find(u"generatorStyle2"_s), QAccessibleActionInterface::pressAction()));
    QCOMPARE(generator().selectedStyle(), TextStyle::modern);
}

void AccessibilityTest::opensMenusAndPickers()
{
    QAccessible::setActive(true);
    openScreen(1);
    QVERIFY(act(session().find(u"shapePicker"_s), QAccessibleActionInterface::pressAction()));
    QQuickItem *square = nullptr;
    QTRY_VERIFY((square = session().findText(u"Square (1:1)"_s)));
    QVERIFY(act(square, QAccessibleActionInterface::pressAction()));
    QTRY_COMPARE(generator().selectedAspectRatio(), AspectRatio::square);
    QTRY_VERIFY(!session().findText(u"Instagram (4:5)"_s));

    QVERIFY(act(session().findText(u"&Edit"_s), QAccessibleActionInterface::pressAction()));
    QTRY_VERIFY(session().find(u"editDelete"_s));
    session().key(Qt::Key_Escape);
    QTRY_VERIFY(!session().find(u"editDelete"_s));
    session().key(Qt::Key_F10);
    QTRY_VERIFY(session().find(u"about"_s));
    session().key(Qt::Key_Right);
    QTRY_VERIFY(session().find(u"editDelete"_s));
    session().key(Qt::Key_Right);
    QTRY_VERIFY(session().find(u"toggleSidebar"_s));
    QVERIFY(act(session().find(u"toggleSidebar"_s), QAccessibleActionInterface::pressAction()));
    QTRY_VERIFY(!session().find(u"sidebar"_s) && !session().find(u"toggleSidebar"_s));
}

void AccessibilityTest::everyControlTellsWhatItIs()
{
    QAccessible::setActive(true);
    openScreen(0);
    generator().setIsAiMode(true);
    settle();
    QCOMPARE(faults(), QString());
    generator().setOpenAiApiKey(u"secret"_s);
    QAccessibleInterface *const key = interfaceOf(session().find(u"apiKey"_s));
    QCOMPARE(key->text(QAccessible::Name), u"OpenAI API Key"_s);
    QVERIFY(key->state().passwordEdit && !key->textInterface() && key->text(QAccessible::Value).isEmpty());
    QVERIFY(interfaceOf(session().find(u"generate"_s))->state().disabled);
}

void AccessibilityTest::textsStandOut_data()
{
    // The layers of a ground from the deepest on, each with its opacity in per cent if that is not its own.
    const auto row = table<QStringList, QStringList>({"texts", "ground"});
    row("window", {u"primary"_s, u"secondary"_s, u"orange"_s}, {u"windowBackground"_s});
    row("sidebar", {u"primary"_s, u"secondary"_s}, {u"sidebarBackground"_s});
    row("sidebar's chosen row", {u"primary"_s}, {u"sidebarBackground"_s, u"selected"_s});
    row("card", {u"primary"_s, u"secondary"_s, u"numberText"_s, u"placeholder"_s, u"titleText"_s},
        {u"controlBackground"_s, u"cardBackground"_s});
    row("text field", {u"primary"_s, u"placeholder"_s, u"secondary"_s}, {u"textBackground"_s});
    row("selected text", {u"accentText"_s}, {u"accent"_s});
    row("button", {u"primary"_s, u"red"_s}, {u"raisedBackground"_s});
    row("button under the pointer", {u"primary"_s, u"red"_s}, {u"raisedBackground"_s, u"hovered"_s});
    row("button pressed", {u"primary"_s}, {u"raisedBackground"_s, u"pressed"_s});
    row("menu", {u"primary"_s, u"secondary"_s, u"red"_s, u"blue"_s}, {u"raisedBackground"_s});
    row("row under the pointer", {u"primary"_s, u"secondary"_s}, {u"controlBackground"_s, u"hovered"_s});
    row("chosen row", {u"primary"_s}, {u"controlBackground"_s, u"selected"_s});
    for (const char *const accent :
         {"accent", "accentHovered", "accentPressed", "destructive", "purpleGround"})
        row(accent, {u"accentText"_s}, {QString::fromLatin1(accent)});
    for (const QString &ground : {u"accent"_s, u"purpleGround"_s}) {
        row(qPrintable(ground + u", under the pointer"_s), {u"accentText"_s},
            {ground, u"accentHoveredOver"_s});
        row(qPrintable(ground + u", pressed"_s), {u"accentText"_s}, {ground, u"accentPressedOver"_s});
    }
    for (const QString &tint : {u"blue"_s, u"purple"_s, u"green"_s, u"red"_s}) {
        for (const int opacity : {10, 14, 20, 24})
            row(qPrintable(u"%1 at %2 % on itself"_s.arg(tint).arg(opacity)), {tint},
                {u"tintedGround"_s, u"%1 %2"_s.arg(tint).arg(opacity)});
    }
    row("button without a preset", {u"secondary"_s}, {u"tintedGround"_s, u"gray 10"_s});
    for (const QString &tint : {u"green"_s, u"orange"_s})
        row(qPrintable(u"badge in "_s + tint), {tint},
            {u"controlBackground"_s, u"cardBackground"_s, tint + u" 10"_s});
    row("no assets", {u"accentText"_s}, {u"controlBackground"_s, u"unavailableGround"_s});
    row("over the preview", {u"overlayText"_s}, {u"windowBackground"_s, u"material"_s});
}

void AccessibilityTest::textsStandOut()
{
    QFETCH(const QStringList, texts);
    QFETCH(const QStringList, ground);
    QQmlEngine engine;
    engine.addImportPath(u"qrc:/qt/qml"_s);
    QQmlComponent component(&engine);
    component.setData(
        "import Mosslantern.Common\nimport QtQml\nQtObject { readonly property var theme: Theme }", QUrl());
    const std::unique_ptr<QObject> root(component.create());
    QVERIFY2(root, qPrintable(component.errorString()));
    const auto *const theme = root->property("theme").value<QObject *>();
    const auto color = [theme](const QString &name) {
        const QVariant value = theme->property(qPrintable(name));
        if (!value.isValid())
            qFatal("%s is no colour", qPrintable(name));
        return value.value<QColor>();
    };
    QColor surface = Qt::black;
    for (const QString &layer : ground) {
        const QStringList parts = layer.split(u' ');
        surface = laidOver(color(parts[0]), surface, parts.size() > 1 ? parts[1].toDouble() / 100 : 1);
    }
    for (const QString &text : texts) {
        const double found = contrast(color(text), surface);
        QVERIFY2(found >= 4.5, qPrintable(u"%1: %2"_s.arg(text).arg(found, 0, 'f', 2)));
    }
}

QTEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
