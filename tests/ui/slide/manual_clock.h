#pragma once

#include "ui/slide/slide_canvas_view.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <vector>

namespace mosslantern {

/// Time that passes only when the test says so.
class ManualClock
{
public:
    SlideCanvasView::CallLater callLater()
    {
        return [this](std::chrono::nanoseconds delay, QObject *context, const std::function<void()> &call) {
            m_calls.push_back({m_now + delay, context, call});
        };
    }

    /// Calls what falls due, and lets the event loop do what that has queued.
    void advance(std::chrono::milliseconds by)
    {
        m_now += by;
        std::vector<Call> due;
        std::erase_if(m_calls, [&](const Call &call) {
            if (call.at > m_now)
                return false;
            due.push_back(call);
            return true;
        });
        for (const Call &call : due) {
            if (call.context)
                call.call();
        }
        QCoreApplication::processEvents();
    }

private:
    struct Call
    {
        std::chrono::nanoseconds at;
        QPointer<QObject> context;
        std::function<void()> call;
    };

    std::chrono::nanoseconds m_now{0};
    std::vector<Call> m_calls;
};

} // namespace mosslantern
