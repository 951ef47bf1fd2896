#pragma once

#include "ui/generator/slideshow_generator.h"

namespace mosslantern {

/// The generator's panel: its settings as the controls show them, and what its buttons do.
class GeneratorView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("SlideshowsView makes it.")
    Q_PROPERTY(mosslantern::SlideshowGenerator *generator READ generator CONSTANT)
    Q_PROPERTY(QStringList collectionNames READ collectionNames NOTIFY collectionNamesChanged)
    Q_PROPERTY(int collectionChoice READ collectionChoice NOTIFY collectionChoiceChanged)
    Q_PROPERTY(bool hasAssets READ hasAssets NOTIFY assetsChanged)
    Q_PROPERTY(QString availableAssets READ availableAssets NOTIFY assetsChanged)
    Q_PROPERTY(QStringList shapeNames READ shapeNames CONSTANT)
    Q_PROPERTY(int shape READ shape WRITE setShape NOTIFY shapeChanged)
    Q_PROPERTY(QList<QString> styleNames READ styleNames CONSTANT)
    Q_PROPERTY(int style READ style WRITE setStyle NOTIFY styleChanged)
    Q_PROPERTY(bool showsBoxColor READ showsBoxColor NOTIFY styleChanged)
    Q_PROPERTY(bool showsBorder READ showsBorder NOTIFY styleChanged)
    Q_PROPERTY(int colorChoice READ colorChoice NOTIFY colorChoiceChanged)
    Q_PROPERTY(bool isValid READ isValid NOTIFY isValidChanged)
    Q_PROPERTY(QString placeholder READ placeholder CONSTANT)
    Q_PROPERTY(QString generateText READ generateText NOTIFY generateTextChanged)
    Q_PROPERTY(bool canGenerate READ canGenerate NOTIFY canGenerateChanged)
    /// Whether the sheet of saved contents and the panel on API keys are shown.
    Q_PROPERTY(bool showingLibrary MEMBER m_showingLibrary NOTIFY showingLibraryChanged)
    Q_PROPERTY(bool showingApiKeyInfo MEMBER m_showingApiKeyInfo NOTIFY showingApiKeyInfoChanged)

public:
    explicit GeneratorView(SlideshowGenerator &generator, QObject *parent = nullptr);

    SlideshowGenerator *generator() const { return &m_generator; }

    /// The items of the sources' menu, "All Assets" before the collections, and the chosen one among them.
    QStringList collectionNames() const;
    int collectionChoice() const;
    Q_INVOKABLE void chooseCollection(int choice);

    bool hasAssets() const { return m_generator.assetSource()->count() > 0; }
    QString availableAssets() const;

    /// For people, in the order of the shapes; shape() is the number of the chosen one.
    static QStringList shapeNames();
    int shape() const { return static_cast<int>(m_generator.selectedAspectRatio()); }
    void setShape(int shape);

    /// The same for the styles.
    static QStringList styleNames();
    int style() const { return static_cast<int>(m_generator.selectedStyle()); }
    void setStyle(int style);

    /// Which of the two colour pickers is shown: white or black for boxed, black or clear for classic.
    bool showsBoxColor() const { return m_generator.selectedStyle() == TextStyle::boxed; }
    bool showsBorder() const { return m_generator.selectedStyle() == TextStyle::classic; }

    /// Which of the shown picker's two choices the colour is; -1 when it is neither.
    int colorChoice() const;
    Q_INVOKABLE void chooseColor(int choice);

    /// Whether the content is a slide-content document.
    bool isValid() const { return m_isValid; }
    static QString placeholder();

    Q_INVOKABLE void insertExample();
    Q_INVOKABLE void prettify();
    Q_INVOKABLE void fixNewlines();
    Q_INVOKABLE void clearContent();

    /// A scale in whole per cent, for people: what stands behind the point is left out.
    Q_INVOKABLE static QString percentage(double scale);

    /// The text of the button that starts a run, and whether it can be pressed.
    QString generateText() const;
    bool canGenerate() const;

    Q_INVOKABLE void generate() { emit onGenerate(); }

signals:
    void collectionNamesChanged();
    void collectionChoiceChanged();
    void assetsChanged();
    void shapeChanged();
    void styleChanged();
    void colorChoiceChanged();
    void isValidChanged();
    void generateTextChanged();
    void canGenerateChanged();
    void showingLibraryChanged();
    void showingApiKeyInfoChanged();

    /// A run is to be started.
    void onGenerate();

private:
    std::vector<Collection *> collections() const;
    void followCollections();
    void followSettings();
    void checkContent();

    SlideshowGenerator &m_generator;
    bool m_isValid;
    bool m_showingLibrary = false;
    bool m_showingApiKeyInfo = false;
};

} // namespace mosslantern
