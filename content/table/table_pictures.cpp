#include "content/table/table_pictures.h"

#include "model/asset.h"
#include "model/folded_spaces.h"
#include "model/record_lookup.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

namespace mosslantern {

using namespace Qt::StringLiterals;

TablePictures::TablePictures(const Store &store, const QString &folder, bool canDraw)
    : m_store(store)
    , m_folder(folder)
    , m_canDraw(canDraw)
{
    const auto note = [this](const QString &name, Asset *asset) {
        const auto known = m_assets.constFind(name);
        m_assets.insert(name, known == m_assets.constEnd() || *known == asset ? asset : nullptr);
    };
    for (Asset *const asset : store.all<Asset>()) {
        note(asset->name(), asset);
        note(foldedSpaces(asset->name()), asset);
    }
}

Result<TablePictures::Found> TablePictures::find(const QString &name)
{
    const auto known = m_found.constFind(name);
    return known == m_found.constEnd() ? *m_found.insert(name, search(name)) : *known;
}

Result<TablePictures::Found> TablePictures::search(const QString &name) const
{
    if (Asset *const only = m_assets.value(name))
        return Found{.asset = only, .file = {}};
    // To look through the whole library for each of many paths takes too long.
    static const QRegularExpression id(u"^[0-9A-Fa-f-]{4,36}$"_s);
    if (m_assets.contains(name) || m_assets.contains(foldedSpaces(name)) || id.match(name).hasMatch()) {
        const Result<Asset *> asset = findAsset(m_store, name);
        if (asset)
            return Found{.asset = *asset, .file = {}};
        if (m_assets.contains(name))
            return std::unexpected(asset.error());
    }
    const QDir folder(m_folder);
    for (const QString &file : {folder.filePath(name), name}) {
        if (const QFileInfo info(file); info.isFile())
            return Found{.asset = nullptr, .file = info.absoluteFilePath()};
    }
    return fail(u"There is no picture “%1”."_s.arg(name));
}

std::optional<QString> TablePictures::objection(const QStringList &names)
{
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (names[i].isEmpty() && !m_canDraw)
            return u"slide %1 names no picture, and there are none to draw from"_s.arg(i + 1);
        if (const auto found = names[i].isEmpty() ? Found() : find(names[i]); !found)
            return found.error().message;
    }
    return {};
}

} // namespace mosslantern
