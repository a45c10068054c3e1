// Objects of the SDK that live in a variable rather than as long as they are referred to.
#pragma once

#include "RxObject.h"

/** An OdStaticRxObject<T> is a T that is a variable or a member: references to it may be handed out, but do not keep it
    alive. */
template<class T>
class OdStaticRxObject : public T
{
public:
    using T::T;
    OdStaticRxObject() = default;

    void addRef() override {}
    void release() override {}
    long numRefs() const override { return 1; }
};
