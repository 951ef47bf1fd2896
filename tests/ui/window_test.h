#pragma once

#include "tests/ui/ui_session.h"
#include "ui/common/interface_fonts.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

namespace mosslantern {

/// What every test of the window has: a fresh window on a fresh library for each function.
class WindowTest : public QObject
{
    Q_OBJECT

protected:
    UiSession &session() { return *m_session; }
    Store &store() { return m_session->store(); }

    /// A small picture file in the test's own folder.
    QUrl pictureFile(const QString &name, const QColor &color = Qt::red);
    void settle() { m_session->settle(); }

private slots:
    void initTestCase();
    void init();
    void cleanup() { m_session.reset(); }

private:
    std::unique_ptr<UiSession> m_session;
    QTemporaryDir m_folder;
};

} // namespace mosslantern
