// Whatever lies over a screen keeps every pointer away from it: each sheet, alert, popover and menu is opened
// over a full screen as a user opens it, and then clicked, double-clicked, dragged, scrolled and touched all
// over.

#include "model/content_template.h"
#include "tests/model/library_dump.h"
#include "tests/table.h"
#include "tests/ui/generator/generator_test.h"
#include "ui/common/input_layer.h"
#include "ui/editor/slideshow_detail_view.h"

#include <QtCore/QMimeData>
#include <QtGui/QDesktopServices>
#include <QtGui/QStyleHints>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

enum class Closes { byItsButtons, byAnyClick };

/// What pointers do to an item and what can be chosen in it, and the same of all in it.
void describe(const QQuickItem &item, QStringList &lines)
{
    static constexpr std::array names{"currentIndex", "contentX", "contentY", "checked",
                                      "isSelected",   "isTicked", "length",   "cursorPosition",
                                      "value",        "pressed",  "hovered",  "active"};
    const auto note = [&](const QObject &object) {
        for (const char *const name : names) {
            // Qt forgets to tell a split view that the pointer has left it.
            if (object.inherits("QQuickSplitView") && qstrcmp(name, "hovered") == 0)
                continue;
            if (const QVariant value = object.property(name); value.isValid())
                lines.append(u"%1 %2 %3 = %4"_s.arg(QString::fromLatin1(object.metaObject()->className()),
                                                    object.objectName(), QString::fromLatin1(name),
                                                    value.toString()));
        }
    };
    note(item);
    for (const QObject *const child : item.children()) {
        if (child->inherits("QQuickPointerHandler"))
            note(*child);
    }
    for (const QQuickItem *const child : item.childItems())
        describe(*child, lines);
}

/// The layers that pointers do not reach.
QList<InputLayer *> shutLayers(QQuickItem &item)
{
    QList<InputLayer *> found;
    if (auto *const layer = qobject_cast<InputLayer *>(&item); layer && layer->isShut())
        found.append(layer);
    for (QQuickItem *const child : item.childItems())
        found += shutLayers(*child);
    return found;
}

/// Whether there is something at a point that acts when it is clicked.
bool hasButton(const QQuickItem &item, QPointF point)
{
    if (!item.isVisible() || !item.isEnabled())
        return false;
    if ((item.inherits("QQuickAbstractButton") || item.inherits("QQuickComboBox")) &&
        item.contains(item.mapFromScene(point)))
        return true;
    return std::ranges::any_of(item.childItems(),
                               [&](const QQuickItem *child) { return hasButton(*child, point); });
}

QQuickItem *overlay(const QQuickWindow &window)
{
    const QList<QQuickItem *> top = window.contentItem()->childItems();
    const auto found =
        std::ranges::find_if(top, [](QQuickItem *item) { return item->inherits("QQuickOverlay"); });
    return found == top.end() ? nullptr : *found;
}

} // namespace

class InputLayersTest : public GeneratorTest
{
    Q_OBJECT

public slots:
    /// Links lead nowhere.
    void follow(const QUrl &) {}

private:
    /// Ten collections with members, slideshows in four batches, two templates.
    void fillLibrary()
    {
        QList<Collection *> collections;
        for (int i = 0; i < 10; ++i)
            collections.append(session().library().addCollection(u"Collection %1"_s.arg(i)));
        QList<Asset *> assets;
        for (int i = 0; i < 60; ++i)
            assets.append(
                session().library().addAsset(u"asset %1"_s.arg(i), i < 30 ? collections[i / 3] : nullptr));
        for (int i = 0; i < 16; ++i)
            session().library().addSlideshow(assets[i], {u"One"_s, u"Two"_s, u"Three"_s},
                                             u"Batch %1"_s.arg(i / 4));
        for (const QString &name : {u"First"_s, u"Second"_s})
            store().insert(std::make_unique<ContentTemplate>(name, u"One\nTwo"_s));
    }

    /// One thing that a user does: a click on the second item of a name, if there are several. Before the
    /// name may stand "right:" for the other button, "panel:" for what is scrolled to before, "return:" for
    /// the Return key on it, and "menu:" before the title of a menu.
    bool act(const QString &step)
    {
        const QString how = step.section(u':', 0, -2);
        const QString name = step.section(u':', -1);
        if (how == "panel"_L1)
            return clickInPanel(name);
        if (how == "return"_L1) {
            setFocus(name);
            session().key(Qt::Key_Return);
            return true;
        }
        if (how == "menu"_L1) {
            const QQuickItem *const title = session().findText(name);
            QTest::mouseClick(session().window(), Qt::LeftButton, {},
                              title->mapToScene(title->boundingRect().center()).toPoint());
            settle();
            return true;
        }
        return session().click(name, session().count(name) > 1 ? 1 : 0,
                               how == "right"_L1 ? Qt::RightButton : Qt::LeftButton);
    }

    QList<InputLayer *> shut() { return shutLayers(*session().window()->contentItem()); }

    QStringList beneath()
    {
        QStringList lines;
        for (const InputLayer *const layer : shut())
            describe(*layer, lines);
        return lines;
    }

    void use(QPoint point, const QString &how)
    {
        QQuickWindow *const window = session().window();
        const QPoint there = point + QPoint(point.x() < window->width() / 2 ? 40 : -40,
                                            point.y() < window->height() / 2 ? 30 : -30);
        if (how == "click"_L1) {
            QTest::mouseClick(window, Qt::LeftButton, {}, point);
        } else if (how == "hover"_L1) {
            QTest::mouseMove(window, point);
        } else if (how == "right click"_L1) {
            QTest::mouseClick(window, Qt::RightButton, {}, point);
        } else if (how == "double click"_L1) {
            QTest::mouseDClick(window, Qt::LeftButton, {}, point);
        } else if (how == "drag"_L1) {
            QTest::mousePress(window, Qt::LeftButton, {}, point);
            for (int step = 1; step <= 3; ++step)
                QTest::mouseMove(window, point + (there - point) * step / 3);
            QTest::mouseRelease(window, Qt::LeftButton, {}, there);
        } else if (how == "touch"_L1) {
            QTest::touchEvent(window, m_finger).press(0, point, window);
            QTest::touchEvent(window, m_finger).move(0, there, window);
            QTest::touchEvent(window, m_finger).release(0, there, window);
        } else {
            QWheelEvent wheel(point, window->mapToGlobal(point), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                              false);
            QCoreApplication::sendEvent(window, &wheel);
        }
    }

    QPointingDevice *const m_finger = QTest::createTouchDevice();

private slots:
    void keepPointersFromWhatLiesBeneath_data();
    void keepPointersFromWhatLiesBeneath();
};

void InputLayersTest::keepPointersFromWhatLiesBeneath_data()
{
    const auto row = table<QStringList, Closes, int>({"steps", "closes", "layersBeneath"});
    const QStringList assets{u"sidebarRow0"_s};
    const QStringList collection{u"sidebarRow1"_s, u"collectionRow"_s};
    const QStringList create{u"sidebarRow2"_s, u"panel:insertExample"_s};
    const QStringList history{u"sidebarRow2"_s, u"screenTab1"_s};
    const QStringList editor = history + QStringList{u"slideshowCard"_s};
    const QStringList templates = create + QStringList{u"panel:openLibrary"_s, u"templateRow"_s};

    row("about", assets + QStringList{u"menu:&Mosslantern"_s, u"about"_s}, Closes::byItsButtons, 1);
    row("menu of the menu bar", assets + QStringList{u"menu:&Edit"_s}, Closes::byAnyClick, 1);
    row("menu of an asset", assets + QStringList{u"right:assetCell"_s}, Closes::byAnyClick, 1);
    row("new collection", collection + QStringList{u"newCollection"_s}, Closes::byItsButtons, 1);
    row("add assets", collection + QStringList{u"addAssets"_s}, Closes::byItsButtons, 1);
    row("menu of a collection", collection + QStringList{u"right:collectionRow"_s}, Closes::byAnyClick, 1);
    row("menu of a member", collection + QStringList{u"right:memberCell"_s}, Closes::byAnyClick, 1);
    row("why a key", create + QStringList{u"panel:aiSwitch"_s, u"panel:apiKeyInfo"_s}, Closes::byAnyClick, 1);
    row("shapes", create + QStringList{u"panel:shapePicker"_s}, Closes::byAnyClick, 1);
    row("sources", create + QStringList{u"panel:sourcePicker"_s}, Closes::byAnyClick, 1);
    row("templates", templates, Closes::byItsButtons, 1);
    row("new template", templates + QStringList{u"createNewTemplate"_s}, Closes::byItsButtons, 2);
    row("delete a template", templates + QStringList{u"deleteTemplate"_s}, Closes::byItsButtons, 2);
    row("menu of a slideshow", history + QStringList{u"right:slideshowCard"_s}, Closes::byAnyClick, 1);
    row("delete a batch", history + QStringList{u"deleteBatch"_s}, Closes::byItsButtons, 1);
    row("editor", editor, Closes::byItsButtons, 1);
    row("presets", editor + QStringList{u"presetPicker"_s}, Closes::byAnyClick, 2);
    row("save a preset", editor + QStringList{u"return:savePreset"_s}, Closes::byItsButtons, 2);
}

void InputLayersTest::keepPointersFromWhatLiesBeneath()
{
    QFETCH(const QStringList, steps);
    QFETCH(const Closes, closes);
    QFETCH(const int, layersBeneath);
    QDesktopServices::setUrlHandler(u"https"_s, this, "follow");
    QGuiApplication::styleHints()->setUseHoverEffects(true);
    fillLibrary();
    QQuickWindow *const window = session().open();
    for (const QString &step : steps)
        QVERIFY2(act(step), qPrintable(step));
    QTRY_COMPARE(shut().size(), layersBeneath);
    QTRY_VERIFY(!beneath().join(u'\n').contains(" hovered = true"_L1));
    // The editor may change its own slideshow.
    const bool isEditor = session().find(u"slideList"_s) != nullptr;
    if (isEditor)
        session().key(Qt::Key_Down);
    const QStringList screen = beneath();
    const Slideshow *const edited =
        isEditor ? window->findChild<SlideshowDetailView *>()->slideshow() : nullptr;
    const QStringList records = dump(store(), edited);

    // The menu bar lies beneath sheets, but not beneath what any click closes.
    const int top = closes == Closes::byAnyClick ? 50 : 20;

    for (const QString &how :
         {u"hover"_s, u"click"_s, u"right click"_s, u"double click"_s, u"drag"_s, u"wheel"_s, u"touch"_s}) {
        // The second click is for what the first one has uncovered.
        if (closes == Closes::byAnyClick && how == "double click"_L1)
            continue;
        for (int y = top; y < window->height(); y += 131) {
            for (int x = 25; x < window->width(); x += 152) {
                if (hasButton(*overlay(*window), QPointF(x, y)))
                    continue;
                use({x, y}, how);
                if (closes == Closes::byAnyClick && shut().size() < layersBeneath) {
                    settle();
                    QVERIFY(act(steps.last()));
                }
                QVERIFY2(shut().size() == layersBeneath,
                         qPrintable(u"%1 at %2, %3"_s.arg(how).arg(x).arg(y)));
            }
            const QByteArray where = u"%1 at height %2"_s.arg(how).arg(y).toUtf8();
            if (beneath() != screen)
                QTRY_VERIFY2(beneath() == screen, where.constData());
            QVERIFY2(dump(store(), edited) == records, where.constData());
            if (edited)
                QCOMPARE(window->findChild<SlideshowDetailView *>()->slideshow(), edited);
        }
    }

    QMimeData files;
    files.setUrls({pictureFile(u"dropped.png"_s)});
    QDragEnterEvent enter(QPoint(700, 400), Qt::CopyAction, &files, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &enter);
    QVERIFY(!enter.isAccepted());
    QDesktopServices::unsetUrlHandler(u"https"_s);
}

QTEST_MAIN(InputLayersTest)
#include "tst_input_layers.moc"
