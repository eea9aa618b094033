#include "ActiveProcess.h"

struct ActiveProcess::Private
{
};

ActiveProcess::ActiveProcess(QObject* parent)
    : QObject(parent)
{ }

ActiveProcess::~ActiveProcess() = default;

quint32 ActiveProcess::processId() const
{
    return 0;
}

QString ActiveProcess::executable(quint32)
{
    return QString();
}

void ActiveProcess::onReadable()
{ }
