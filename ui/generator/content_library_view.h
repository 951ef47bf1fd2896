#pragma once

#include "model/content_template.h"
#include "model/live_query.h"
#include "ui/common/list_selection.h"
#include "ui/common/screen_context.h"

#include <optional>

namespace mosslantern {

/// The sheet of saved slide-content texts. It neither parses nor checks them.
class ContentLibraryView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        mosslantern::ScreenContext *context READ context WRITE setContext NOTIFY contextChanged REQUIRED)
    Q_PROPERTY(mosslantern::LiveQueryBase *templates READ templatesModel NOTIFY contextChanged)
    Q_PROPERTY(QString textInput READ textInput WRITE setTextInput NOTIFY textInputChanged)
    Q_PROPERTY(mosslantern::ContentTemplate *selectedTemplate READ selectedTemplate WRITE setSelectedTemplate
                   NOTIFY selectedTemplateChanged)
    Q_PROPERTY(mosslantern::ListSelection *selection READ selection NOTIFY contextChanged)
    Q_PROPERTY(bool showingSaveDialog READ showingSaveDialog WRITE setShowingSaveDialog NOTIFY
                   showingSaveDialogChanged)
    Q_PROPERTY(
        QString newTemplateName READ newTemplateName WRITE setNewTemplateName NOTIFY newTemplateNameChanged)
    Q_PROPERTY(QString newTemplateContent READ newTemplateContent WRITE setNewTemplateContent NOTIFY
                   newTemplateContentChanged)
    Q_PROPERTY(bool isCreatingNew READ isCreatingNew NOTIFY isCreatingNewChanged)
    Q_PROPERTY(bool canSave READ canSave NOTIFY canSaveChanged)
    Q_PROPERTY(bool showingDeleteConfirmation READ showingDeleteConfirmation WRITE
                   setShowingDeleteConfirmation NOTIFY showingDeleteConfirmationChanged)

public:
    explicit ContentLibraryView(QObject *parent = nullptr);

    ScreenContext *context() const { return m_context; }
    /// Once, before anything else.
    void setContext(ScreenContext *context);

    /// All templates, newest first.
    const LiveQuery<ContentTemplate> &templates() const { return *m_templates; }

    /// The generator's slide-content text.
    QString textInput() const { return m_textInput; }
    void setTextInput(const QString &text);

    /// The template that is shown beside the list, or null. Null again when it is removed.
    ContentTemplate *selectedTemplate() const;
    void setSelectedTemplate(ContentTemplate *contentTemplate) { m_selection->select(contentTemplate); }
    ListSelection *selection() { return m_selection ? &*m_selection : nullptr; }

    /// Whether the save sheet is shown; isCreatingNew() says what it saves: the text typed into it, or
    /// textInput().
    bool showingSaveDialog() const { return m_showingSaveDialog; }
    void setShowingSaveDialog(bool isShowing);
    bool isCreatingNew() const { return m_isCreatingNew; }
    /// Open the save sheet for the one or the other, with an empty name.
    Q_INVOKABLE void createNew();
    Q_INVOKABLE void saveCurrent();

    /// The fields of the save sheet.
    QString newTemplateName() const { return m_newTemplateName; }
    void setNewTemplateName(const QString &name);
    QString newTemplateContent() const { return m_newTemplateContent; }
    void setNewTemplateContent(const QString &content);

    /// Whether what the save sheet needs is more than spaces and tabs.
    bool canSave() const;

    /// Saves the name and the text without spaces and tabs at their ends (line breaks stay) as a new
    /// template, selects it and closes the save sheet; does nothing when that is closed already.
    Q_INVOKABLE void saveTemplate();

    /// Replaces textInput() by the selected template's text and asks to be closed.
    Q_INVOKABLE void loadTemplate();

    /// Whether the question is shown whether to delete the selected template.
    bool showingDeleteConfirmation() const { return m_showingDeleteConfirmation; }
    void setShowingDeleteConfirmation(bool isShowing);
    Q_INVOKABLE void deleteSelectedTemplate();

signals:
    void contextChanged();
    void textInputChanged();
    void selectedTemplateChanged();
    void showingSaveDialogChanged();
    void newTemplateNameChanged();
    void newTemplateContentChanged();
    void isCreatingNewChanged();
    void canSaveChanged();
    void showingDeleteConfirmationChanged();
    void closeRequested();

private:
    LiveQueryBase *templatesModel() { return m_templates ? &*m_templates : nullptr; }
    void openSaveDialog(bool createsNew);

    ScreenContext *m_context = nullptr;
    std::optional<LiveQuery<ContentTemplate>> m_templates;
    QString m_textInput;
    std::optional<ListSelection> m_selection;
    bool m_showingSaveDialog = false;
    QString m_newTemplateName;
    QString m_newTemplateContent;
    bool m_isCreatingNew = false;
    bool m_showingDeleteConfirmation = false;
};

} // namespace mosslantern
