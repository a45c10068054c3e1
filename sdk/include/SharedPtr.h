// Shared ownership of things that are no objects of the SDK.
#pragma once

#include <memory>

/** An OdSharedPtr<T> owns something together with its copies; the last of them deletes it. Threads may hold copies of
    one; what it points to says itself who may use it. */
template<class T>
class OdSharedPtr
{
public:
    OdSharedPtr() = default;
    OdSharedPtr(std::nullptr_t) {}
    /** Owns the object from now on. */
    OdSharedPtr(T* object) : m_object(object) {}
    template<class Other>
    OdSharedPtr(const OdSharedPtr<Other>& source) : m_object(source.shared())
    {
    }

    T* get() const { return m_object.get(); }
    T* operator->() const { return m_object.get(); }
    T& operator*() const { return *m_object; }
    operator T*() const { return m_object.get(); }
    bool isNull() const { return m_object == nullptr; }
    long refCount() const { return m_object.use_count(); }
    void reset(T* object = nullptr) { m_object.reset(object); }
    const std::shared_ptr<T>& shared() const { return m_object; }

private:
    std::shared_ptr<T> m_object;
};
