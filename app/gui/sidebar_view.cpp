#include "app/gui/sidebar_view.h"

#include "app/gui/app_screen.h"

namespace mosslantern {

namespace {

struct Row
{
    QString section;
    QString label;
    QString symbol;
};

Row row(AppScreen screen)
{
    const QString resources = SidebarView::tr("Resources");
    switch (screen) {
    case AppScreen::assets:
        return {resources, SidebarView::tr("Assets"), QStringLiteral("photo.stack")};
    case AppScreen::collections:
        return {resources, SidebarView::tr("Collections"), QStringLiteral("folder")};
    case AppScreen::slideshows:
        return {SidebarView::tr("Playground"), SidebarView::tr("Slideshows"),
                QStringLiteral("rectangle.split.2x1")};
    }
    Q_UNREACHABLE();
}

} // namespace

int SidebarView::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(allAppScreens.size());
}

QVariant SidebarView::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto place = static_cast<size_t>(index.row());
    const Row shown = row(allAppScreens[place]);
    const bool isFirst = place == 0 || row(allAppScreens[place - 1]).section != shown.section;
    switch (role) {
    case HeadingRole:
        return isFirst ? shown.section : QString();
    case LabelRole:
        return shown.label;
    case SymbolRole:
        return shown.symbol;
    default:
        return {};
    }
}

QHash<int, QByteArray> SidebarView::roleNames() const
{
    return {{HeadingRole, "heading"}, {LabelRole, "label"}, {SymbolRole, "symbol"}};
}

} // namespace mosslantern
