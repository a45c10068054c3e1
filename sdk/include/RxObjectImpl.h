// Classes of objects that can be made: what is declared as a class gets its counter of references here.
#pragma once

#include <atomic>
#include <utility>

#include "RxObject.h"

/** An OdRxObjectImpl<T> is a T that counts its references and ends with the last one. TInterface is the class that the
    smart pointer is for. */
template<class T, class TInterface = T>
class OdRxObjectImpl : public T
{
public:
    using T::T;
    OdRxObjectImpl() = default;

    void addRef() override { m_references.fetch_add(1, std::memory_order_relaxed); }
    void release() override
    {
        // nobody can add a reference to the last one
        if (m_references.load(std::memory_order_acquire) == 1 ||
            m_references.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }
    long numRefs() const override { return m_references.load(std::memory_order_relaxed); }

    /** A new object; the smart pointer holds its only reference. */
    template<class... Arguments>
    static OdSmartPtr<TInterface> createObject(Arguments&&... arguments)
    {
        return OdSmartPtr<TInterface>(
            static_cast<TInterface*>(new OdRxObjectImpl(std::forward<Arguments>(arguments)...)), kOdRxObjAttach);
    }

private:
    std::atomic<int> m_references{1};
};
