// Pointers that hold a reference to an object of the SDK.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

class OdRxClass;
class OdRxObject;

/** Says that a smart pointer takes over a reference that the caller has, rather than adding one. */
enum OdRxObjMod : int
{
    kOdRxObjAttach = 0
};

/** An OdBaseObjectPtr holds one reference to an object of any class, or none. It is the part of OdSmartPtr that does
   not depend on the class. */
class OdBaseObjectPtr
{
public:
    OdBaseObjectPtr() noexcept = default;
    explicit OdBaseObjectPtr(const OdRxObject* object) noexcept;
    OdBaseObjectPtr(OdRxObject* object, OdRxObjMod) noexcept : m_object(object) {}
    OdBaseObjectPtr(const OdBaseObjectPtr& source) noexcept : OdBaseObjectPtr(source.m_object) {}
    OdBaseObjectPtr(OdBaseObjectPtr&& source) noexcept : m_object(std::exchange(source.m_object, nullptr)) {}
    ~OdBaseObjectPtr() { release(); }
    OdBaseObjectPtr& operator=(const OdBaseObjectPtr&) = delete;

    bool isNull() const noexcept { return m_object == nullptr; }
    OdRxObject* get() const noexcept { return m_object; }

    /** Gives the reference back and holds none. */
    void release()
    {
        if (m_object)
            releaseObject(std::exchange(m_object, nullptr));
    }

protected:
    static void addObject(OdRxObject* object) noexcept;
    static void releaseObject(OdRxObject* object);
    /** The object as that class with a reference added; throws OdError_NotThatKindOfClass. */
    static OdRxObject* castObject(const OdRxObject* object, const OdRxClass* aClass);
    static OdRxObject* take(OdBaseObjectPtr& source) noexcept { return std::exchange(source.m_object, nullptr); }
    void replace(OdRxObject* object)
    {
        if (OdRxObject* old = std::exchange(m_object, object))
            releaseObject(old);
    }

    OdRxObject* m_object = nullptr;
};

/** An OdSmartPtr<T> holds one reference to an object of class T, or none. Copies hold references of their own, and the
    last to give its reference back ends the object (or closes it, for an object of a drawing).

    Assigning a pointer to a class that T is not a base of looks for T in the object (see OdRxObject::queryX) and throws
    OdError_NotThatKindOfClass when it is not there; null may always be assigned. T may be incomplete where the pointer
    is only kept or copied. */
template<class T>
class OdSmartPtr : public OdBaseObjectPtr
{
    struct NotUsed;
    using AnyObject = std::conditional_t<std::is_same_v<std::remove_const_t<T>, OdRxObject>, NotUsed, OdRxObject>;

public:
    using element_type = T;

    OdSmartPtr() noexcept = default;
    OdSmartPtr(std::nullptr_t) noexcept {}
    /** Adds a reference. */
    OdSmartPtr(const T* object) noexcept : OdBaseObjectPtr(asObject(object)) {}
    OdSmartPtr(const AnyObject* object) : OdBaseObjectPtr(castTo(object), kOdRxObjAttach) {}
    /** Takes over a reference. */
    OdSmartPtr(const T* object, OdRxObjMod) noexcept : OdBaseObjectPtr(asObject(object), kOdRxObjAttach) {}
    /** Takes over a reference; on failure it is given back and the error thrown. */
    OdSmartPtr(const AnyObject* object, OdRxObjMod) : OdSmartPtr(OdBaseObjectPtr(mutableObject(object), kOdRxObjAttach))
    {
    }
    OdSmartPtr(const OdSmartPtr& source) noexcept = default;
    OdSmartPtr(OdSmartPtr&& source) noexcept = default;
    template<class Other>
    OdSmartPtr(const OdSmartPtr<Other>& source) : OdBaseObjectPtr(castFrom(source), kOdRxObjAttach)
    {
    }
    /** Takes over the reference when T is a base of the other class, else adds one. */
    template<class Other>
    OdSmartPtr(OdSmartPtr<Other>&& source) : OdBaseObjectPtr(takeFrom(source), kOdRxObjAttach)
    {
    }
    explicit OdSmartPtr(const OdBaseObjectPtr& source) : OdBaseObjectPtr(castTo(source.get()), kOdRxObjAttach) {}

    OdSmartPtr& operator=(const OdSmartPtr& source)
    {
        if (m_object != source.m_object)
        {
            addObject(source.m_object);
            replace(source.m_object);
        }
        return *this;
    }
    OdSmartPtr& operator=(OdSmartPtr&& source) noexcept
    {
        if (this != &source)
            replace(std::exchange(source.m_object, nullptr));
        return *this;
    }
    OdSmartPtr& operator=(std::nullptr_t)
    {
        release();
        return *this;
    }
    OdSmartPtr& operator=(const T* object) { return *this = OdSmartPtr(object); }
    OdSmartPtr& operator=(const AnyObject* object) { return *this = OdSmartPtr(object); }
    template<class Other>
    OdSmartPtr& operator=(const OdSmartPtr<Other>& source)
    {
        return *this = OdSmartPtr(source);
    }
    template<class Other>
    OdSmartPtr& operator=(OdSmartPtr<Other>&& source)
    {
        return *this = OdSmartPtr(std::move(source));
    }

    /** Takes over a reference. */
    void attach(const T* object) { replace(asObject(object)); }

    /** Hands the reference over to the caller and holds none. */
    T* detach() noexcept { return asT(std::exchange(m_object, nullptr)); }

    T* get() const noexcept { return asT(m_object); }
    T* operator->() const noexcept { return asT(m_object); }
    T& operator*() const noexcept { return *asT(m_object); }
    operator T*() const noexcept { return asT(m_object); }
    bool operator!() const noexcept { return m_object == nullptr; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    void swap(OdSmartPtr& other) noexcept { std::swap(m_object, other.m_object); }

    /** As T::cast. */
    static OdSmartPtr cast(const OdRxObject* object) { return T::cast(object); }

private:
    static T* asT(OdRxObject* object) noexcept { return static_cast<T*>(object); }
    static OdRxObject* asObject(const T* object) noexcept { return const_cast<std::remove_const_t<T>*>(object); }
    static OdRxObject* mutableObject(const OdRxObject* object) noexcept { return const_cast<OdRxObject*>(object); }
    static OdRxObject* castTo(const OdRxObject* object)
    {
        if constexpr (std::is_same_v<std::remove_const_t<T>, OdRxObject>)
        {
            addObject(mutableObject(object));
            return mutableObject(object);
        }
        else
            return object ? castObject(object, T::desc()) : nullptr;
    }
    template<class Other>
    static OdRxObject* takeFrom(OdSmartPtr<Other>& source)
    {
        if constexpr (std::is_convertible_v<Other*, const T*>)
            return take(source);
        else
            return castTo(source.OdBaseObjectPtr::get());
    }
    template<class Other>
    static OdRxObject* castFrom(const OdSmartPtr<Other>& source)
    {
        if constexpr (std::is_convertible_v<Other*, const T*>)
        {
            addObject(source.OdBaseObjectPtr::get());
            return source.OdBaseObjectPtr::get();
        }
        else
            return castTo(source.OdBaseObjectPtr::get());
    }
};
