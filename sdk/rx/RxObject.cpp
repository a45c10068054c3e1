// Implements the root of all classes and what smart pointers need of it.
#include "RxObject.h"

#include "OdError.h"

OdRxClass* OdRxObject::g_pDesc = nullptr;

OdRxObjectPtr OdRxObject::cast(const OdRxObject* object)
{
    return OdRxObjectPtr(object);
}

void OdRxObject::rxInit()
{
    if (g_pDesc)
        odThrow(eClassAlreadyRegistered);
    g_pDesc = newOdRxClass(L"OdRxObject", nullptr);
}

void OdRxObject::rxUninit()
{
    odrxUnregisterClass(g_pDesc);
}

OdRxObjectPtr OdRxObject::createObject()
{
    odThrow(eNotApplicable);
}

OdRxClass* OdRxObject::isA() const
{
    return g_pDesc;
}

OdRxObject* OdRxObject::queryX(const OdRxClass* protocolClass) const
{
    const OdRxClass* own = isA();
    if (!own || !protocolClass)
        return nullptr;
    const OdRxObject* found = own->isDerivedFrom(protocolClass) ? this : own->findExtension(protocolClass);
    OdRxObject* answer = const_cast<OdRxObject*>(found);
    if (answer)
        answer->addRef();
    return answer;
}

OdRxObject* OdRxObject::x(const OdRxClass* protocolClass) const
{
    OdRxObject* found = queryX(protocolClass);
    if (!found)
        throw OdError_NotThatKindOfClass(isA(), protocolClass);
    return found;
}

OdRxObjectPtr OdRxObject::clone() const
{
    return {};
}

void OdRxObject::copyFrom(const OdRxObject*)
{
    odThrow(eNotApplicable);
}

OdRx::Ordering OdRxObject::comparedTo(const OdRxObject* other) const
{
    return isEqualTo(other) ? OdRx::kEqual : OdRx::kNotOrderable;
}

bool OdRxObject::isEqualTo(const OdRxObject* other) const
{
    return this == other;
}

OdBaseObjectPtr::OdBaseObjectPtr(const OdRxObject* object) noexcept : m_object(const_cast<OdRxObject*>(object))
{
    addObject(m_object);
}

void OdBaseObjectPtr::addObject(OdRxObject* object) noexcept
{
    if (object)
        object->addRef();
}

void OdBaseObjectPtr::releaseObject(OdRxObject* object)
{
    object->release();
}

OdRxObject* OdBaseObjectPtr::castObject(const OdRxObject* object, const OdRxClass* aClass)
{
    return object->x(aClass);
}

OdRxObject* odrxQuery(const OdRxObject* object, const OdRxClass* aClass)
{
    return object ? object->queryX(aClass) : nullptr;
}
