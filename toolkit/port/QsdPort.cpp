#include "toolkit/port/QsdPort.h"

QsdPort::QsdPort(QsdDisplay* display, unsigned long width, unsigned long height)
    : _display(display), _width(width), _height(height)
{
}

QsdPort::~QsdPort() = default;

bool QsdPort::isADevice() const
{
    return false;
}

bool QsdPort::isBad() const
{
    return false;
}

bool QsdPort::initDevice(const char*, QsdRect*)
{
    return false;
}

void QsdPort::end() {}

bool QsdPort::newPage() const
{
    return false;
}

void QsdPort::setTransformer(const QsdTransformer&) {}

void QsdPort::send(const char*) const {}

void QsdPort::clip(const QsdRect*) const {}

void QsdPort::clip(const QsdRegion*) const {}

void QsdPort::flushRedraw() const {}
