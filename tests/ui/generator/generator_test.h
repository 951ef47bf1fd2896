#pragma once

#include "tests/ui/window_test.h"
#include "ui/generator/slideshows_view.h"

namespace mosslantern {

/// What every test of the screen that makes slideshows has.
class GeneratorTest : public WindowTest
{
    Q_OBJECT

protected:
    /// Opens the window on the screen, with so many assets.
    void openScreen(int assets);

    SlideshowsView &view() { return *session().window()->findChild<SlideshowsView *>(); }
    SlideshowGenerator &generator() { return *view().generator(); }
    LivePreview &preview() { return *view().preview(); }

    /// A property of the visible item of this name; invalid when there is none.
    QVariant property(const QString &objectName, const char *name);
    QString text(const QString &objectName) { return property(objectName, "text").toString(); }
    bool isEnabled(const QString &objectName) { return property(objectName, "enabled").toBool(); }
    bool isShown(const QString &objectName) { return session().find(objectName) != nullptr; }

    /// Scrolls the panel to an item of it, and clicks it.
    bool clickInPanel(const QString &objectName);
    void scrollTo(const QString &objectName);
    void setFocus(const QString &objectName);
};

} // namespace mosslantern
