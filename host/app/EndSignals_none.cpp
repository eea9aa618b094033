#include "EndSignals.h"

#include <QSocketNotifier>

EndSignals::EndSignals(QObject* parent)
    : QObject(parent)
{ }

EndSignals::~EndSignals() = default;

void EndSignals::onReadable()
{ }
