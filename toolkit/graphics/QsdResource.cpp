#include "toolkit/graphics/QsdResource.h"

void QsdResource::destroy() const
{
    if (--_references == 0) {
        delete this;
    }
}
