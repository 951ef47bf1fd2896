#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtQml/qqmlregistration.h>

#include <array>

namespace mosslantern {

/// What goes on for a while and would not be finished if the application ended.
class RunningWork : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The context has it.")
    Q_PROPERTY(bool isExporting READ isExporting NOTIFY changed)
    Q_PROPERTY(bool isGenerating READ isGenerating NOTIFY changed)

public:
    enum class Kind { exporting, generating };

    /// Is under way for as long as it exists.
    class Piece
    {
    public:
        Piece(RunningWork &work, Kind kind);
        ~Piece();
        Q_DISABLE_COPY_MOVE(Piece)

    private:
        QPointer<RunningWork> m_work;
        Kind m_kind;
    };

    /// Whether slides are being written.
    bool isExporting() const { return isRunning(Kind::exporting); }
    /// Whether the AI service is waited for.
    bool isGenerating() const { return isRunning(Kind::generating); }

signals:
    void changed();

private:
    bool isRunning(Kind kind) const { return m_pieces[static_cast<size_t>(kind)] > 0; }
    void add(Kind kind, int pieces);

    std::array<int, 2> m_pieces{};
};

} // namespace mosslantern
