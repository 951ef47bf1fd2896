#include "ui/generator/generator_view.h"

#include "content/slide_content.h"
#include "content/slide_documents.h"
#include "ui/slide/style_choices.h"

#include <cmath>

namespace mosslantern {

GeneratorView::GeneratorView(SlideshowGenerator &generator, QObject *parent)
    : QObject(parent)
    , m_generator(generator)
    , m_isValid(isValidSlideContent(generator.textInput()))
{
    followCollections();
    followSettings();
}

void GeneratorView::followCollections()
{
    const LiveQueryBase *const all = m_generator.collections();
    // The menu forgets its choice when it gets other items.
    const auto update = [this] {
        emit collectionNamesChanged();
        emit collectionChoiceChanged();
    };
    connect(all, &QAbstractItemModel::rowsInserted, this, update);
    connect(all, &QAbstractItemModel::rowsRemoved, this, update);
    connect(all, &QAbstractItemModel::rowsMoved, this, update);
    connect(all, &QAbstractItemModel::dataChanged, this, update);
    connect(all, &QAbstractItemModel::modelReset, this, update);
    connect(&m_generator, &SlideshowGenerator::selectedCollectionChanged, this,
            &GeneratorView::collectionChoiceChanged);
}

void GeneratorView::followSettings()
{
    const auto follow = [this](const auto *source, auto signal, auto... receivers) {
        (connect(source, signal, this, receivers), ...);
    };
    follow(m_generator.assetSource(), &LiveQueryBase::countChanged, &GeneratorView::assetsChanged,
           &GeneratorView::generateTextChanged, &GeneratorView::canGenerateChanged);
    follow(&m_generator, &SlideshowGenerator::isAiModeChanged, &GeneratorView::generateTextChanged,
           &GeneratorView::canGenerateChanged);
    follow(&m_generator, &SlideshowGenerator::bulkCountChanged, &GeneratorView::generateTextChanged);
    follow(&m_generator, &SlideshowGenerator::openAiApiKeyChanged, &GeneratorView::canGenerateChanged);
    follow(&m_generator, &SlideshowGenerator::selectedAspectRatioChanged, &GeneratorView::shapeChanged);
    follow(&m_generator, &SlideshowGenerator::styleChanged, &GeneratorView::styleChanged,
           &GeneratorView::colorChoiceChanged);
    follow(&m_generator, &SlideshowGenerator::textInputChanged, &GeneratorView::checkContent);
}

std::vector<Collection *> GeneratorView::collections() const
{
    return static_cast<const LiveQuery<Collection> *>(m_generator.collections())->records();
}

QStringList GeneratorView::collectionNames() const
{
    QStringList names{tr("All Assets")};
    for (const Collection *collection : collections())
        names.append(collection->name());
    return names;
}

int GeneratorView::collectionChoice() const
{
    const Collection *const selected = m_generator.selectedCollection();
    return selected ? m_generator.collections()->indexOf(selected) + 1 : 0;
}

void GeneratorView::chooseCollection(int choice)
{
    const std::vector<Collection *> all = collections();
    const bool isCollection = choice > 0 && choice <= std::ssize(all);
    m_generator.setSelectedCollection(isCollection ? all[static_cast<size_t>(choice) - 1] : nullptr);
}

QString GeneratorView::availableAssets() const
{
    const int count = m_generator.assetSource()->count();
    return (count == 1 ? tr("%1 asset available") : tr("%1 assets available")).arg(count);
}

QStringList GeneratorView::shapeNames()
{
    QStringList names;
    for (const AspectRatio ratio : allAspectRatios)
        names.append(displayName(ratio));
    return names;
}

void GeneratorView::setShape(int shape)
{
    m_generator.setSelectedAspectRatio(allAspectRatios.at(static_cast<size_t>(shape)));
}

QStringList GeneratorView::styleNames()
{
    return mosslantern::styleNames();
}

void GeneratorView::setStyle(int style)
{
    m_generator.setSelectedStyle(allTextStyles.at(static_cast<size_t>(style)));
}

int GeneratorView::colorChoice() const
{
    return mosslantern::colorChoice(m_generator.selectedStyle(), m_generator.boxColor());
}

void GeneratorView::chooseColor(int choice)
{
    m_generator.setBoxColor(colorChoices(m_generator.selectedStyle()).at(static_cast<size_t>(choice)));
}

void GeneratorView::checkContent()
{
    if (std::exchange(m_isValid, isValidSlideContent(m_generator.textInput())) != m_isValid)
        emit isValidChanged();
}

QString GeneratorView::placeholder()
{
    return slideContentPlaceholder.toString();
}

void GeneratorView::insertExample()
{
    m_generator.setTextInput(exampleSlideContent.toString());
}

void GeneratorView::prettify()
{
    m_generator.setTextInput(prettifySlideContent(m_generator.textInput()));
}

void GeneratorView::fixNewlines()
{
    m_generator.setTextInput(fixNewlinesInStrings(m_generator.textInput()));
}

void GeneratorView::clearContent()
{
    m_generator.setTextInput({});
}

QString GeneratorView::percentage(double scale)
{
    // 1.15 times 100 is a hair below 115.
    constexpr double hair = 1e-9;
    return tr("%1%").arg(std::trunc(scale * 100 + hair), 0, 'f', 0);
}

QString GeneratorView::generateText() const
{
    if (!hasAssets())
        return tr("Add Assets First");
    const QString count = QString::number(std::trunc(m_generator.bulkCount()), 'f', 0);
    return tr("Generate %1 ").arg(count) + (m_generator.isAiMode() ? tr("with AI") : QString());
}

bool GeneratorView::canGenerate() const
{
    return hasAssets() && !(m_generator.isAiMode() && m_generator.openAiApiKey().isEmpty());
}

} // namespace mosslantern
