// The first-paint gate: an application-wide event filter watches for the
// first paint of any widget, then lets the waiting work through. Work is
// posted behind that paint, so the picture is on screen before it runs.
#include "widgets/deferred_work.h"

#include <utility>

#include <QCoreApplication>
#include <QEvent>
#include <QList>
#include <QPointer>
#include <QTimer>

namespace {

class FirstPaintGate : public QObject {
public:
    static FirstPaintGate& instance()
    {
        static auto* gate = new FirstPaintGate(QCoreApplication::instance());
        return *gate;
    }

    void enqueue(QObject* context, std::function<void()> work)
    {
        if (open_)
            QTimer::singleShot(0, context, std::move(work));
        else
            waiting_.append({context, std::move(work)});
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (!open_ && event->type() == QEvent::Paint && watched->isWidgetType()) {
            open_ = true;
            QCoreApplication::instance()->removeEventFilter(this);
            for (auto& [context, work] : std::exchange(waiting_, {}))
                if (context)
                    QTimer::singleShot(0, context, std::move(work));
        }
        return false;
    }

private:
    explicit FirstPaintGate(QObject* parent) : QObject(parent) { parent->installEventFilter(this); }

    struct Waiting {
        QPointer<QObject> context;
        std::function<void()> work;
    };
    bool open_ = false;
    QList<Waiting> waiting_;
};

} // namespace

void DeferredWork::defer(QObject* context, std::function<void()> work)
{
    work_ = std::move(work);
    FirstPaintGate::instance().enqueue(context, [this] { runNow(); });
}

void DeferredWork::runNow()
{
    if (auto work = std::exchange(work_, nullptr))
        work();
}
