#include "DragRun.h"

#include <QCoreApplication>
#include <QDrag>
#include <QObject>

namespace {

class DragEnd : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void cancel() { QDrag::cancel(); }
};

} // namespace

Qt::DropAction DragRun::exec(QDrag* drag, const QObject* owner, Qt::DropAction action)
{
    const QObject* const source = drag->source();
    // Qt works on the drag until it has ended, so it must not go with its source.
    drag->setParent(QCoreApplication::instance());
    // A drag that went on would be asked for its source by whatever it comes over.
    DragEnd end;
    if (source)
        QObject::connect(source, SIGNAL(destroyed()), &end, SLOT(cancel()));
    if (owner != source)
        QObject::connect(owner, SIGNAL(destroyed()), &end, SLOT(cancel()));
    return drag->exec(action);
}

#include "DragRun.moc"
