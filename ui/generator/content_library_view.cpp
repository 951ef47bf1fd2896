#include "ui/generator/content_library_view.h"

#include "model/change.h"

namespace mosslantern {

namespace {

/// Without spaces and tabs at both ends; line breaks are no blanks here.
QString trimmedBlanks(const QString &text)
{
    const auto isBlank = [](QChar character) {
        return character == u'\t' || character.category() == QChar::Separator_Space;
    };
    const auto first = std::find_if_not(text.cbegin(), text.cend(), isBlank);
    const auto last = std::find_if_not(text.crbegin(), std::make_reverse_iterator(first), isBlank).base();
    return QString(first, last - first);
}

} // namespace

ContentLibraryView::ContentLibraryView(QObject *parent)
    : QObject(parent)
{
    for (const auto signal :
         {&ContentLibraryView::newTemplateNameChanged, &ContentLibraryView::newTemplateContentChanged,
          &ContentLibraryView::isCreatingNewChanged})
        connect(this, signal, this, &ContentLibraryView::canSaveChanged);
}

void ContentLibraryView::setContext(ScreenContext *context)
{
    Q_ASSERT(!m_context && context);
    m_context = context;
    m_templates.emplace(context->store(), nullptr, newestFirst<ContentTemplate>);
    m_selection.emplace(*m_templates);
    connect(&*m_selection, &ListSelection::changed, this, &ContentLibraryView::selectedTemplateChanged);
    emit contextChanged();
}

void ContentLibraryView::setTextInput(const QString &text)
{
    change(*this, m_textInput, text, &ContentLibraryView::textInputChanged);
}

ContentTemplate *ContentLibraryView::selectedTemplate() const
{
    return m_selection ? static_cast<ContentTemplate *>(m_selection->record()) : nullptr;
}

void ContentLibraryView::setShowingSaveDialog(bool isShowing)
{
    change(*this, m_showingSaveDialog, isShowing, &ContentLibraryView::showingSaveDialogChanged);
}

void ContentLibraryView::openSaveDialog(bool createsNew)
{
    m_isCreatingNew = createsNew;
    emit isCreatingNewChanged();
    setNewTemplateName({});
    setShowingSaveDialog(true);
}

void ContentLibraryView::createNew()
{
    setNewTemplateContent({});
    openSaveDialog(true);
}

void ContentLibraryView::saveCurrent()
{
    openSaveDialog(false);
}

void ContentLibraryView::setNewTemplateName(const QString &name)
{
    change(*this, m_newTemplateName, name, &ContentLibraryView::newTemplateNameChanged);
}

void ContentLibraryView::setNewTemplateContent(const QString &content)
{
    change(*this, m_newTemplateContent, content, &ContentLibraryView::newTemplateContentChanged);
}

bool ContentLibraryView::canSave() const
{
    return !trimmedBlanks(m_newTemplateName).isEmpty() &&
           (!m_isCreatingNew || !trimmedBlanks(m_newTemplateContent).isEmpty());
}

void ContentLibraryView::saveTemplate()
{
    if (!m_showingSaveDialog)
        return;
    const QString source = m_isCreatingNew ? m_newTemplateContent : m_textInput;
    setSelectedTemplate(m_context->store().insert(
        std::make_unique<ContentTemplate>(trimmedBlanks(m_newTemplateName), trimmedBlanks(source))));
    setShowingSaveDialog(false);
}

void ContentLibraryView::loadTemplate()
{
    const ContentTemplate *const loaded = selectedTemplate();
    if (!loaded)
        return;
    setTextInput(loaded->content());
    emit closeRequested();
}

void ContentLibraryView::setShowingDeleteConfirmation(bool isShowing)
{
    change(*this, m_showingDeleteConfirmation, isShowing,
           &ContentLibraryView::showingDeleteConfirmationChanged);
}

void ContentLibraryView::deleteSelectedTemplate()
{
    if (ContentTemplate *const unwanted = selectedTemplate())
        m_context->store().remove(unwanted);
    setShowingDeleteConfirmation(false);
}

} // namespace mosslantern
