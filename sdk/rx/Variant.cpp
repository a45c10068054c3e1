// Values of one of several types, and the objects that hold them.
#include "RxVariant.h"

#include "OdError.h"

ODRX_CONS_DEFINE_MEMBERS(OdRxVariant, OdRxObject, RXIMPL_CONSTR)

int OdVariant::varType() const
{
    // In the order of the alternatives of the value.
    constexpr int kTypes[] = {kVoid,
                              kString,
                              kBool,
                              kInt8,
                              kInt16,
                              kInt32,
                              kInt64,
                              kDouble,
                              kRxObjectPtr,
                              kArray | kString,
                              kArray | kInt32,
                              kArray | kDouble,
                              kArray | kRxObjectPtr};
    static_assert(std::size(kTypes) == std::variant_size_v<decltype(m_value)>);
    return kTypes[m_value.index()];
}

void OdVariant::throwWrongType()
{
    odThrow(eInvalidInput);
}

OdSmartPtr<OdRxVariant> OdRxVariant::createObject(const OdVariant& value)
{
    OdSmartPtr<OdRxVariant> made = OdRxObjectImpl<OdRxVariant>::createObject();
    static_cast<OdVariant&>(*made) = value;
    return made;
}

OdRxObjectPtr OdRxVariant::clone() const
{
    return createObject(static_cast<const OdVariant&>(*this));
}

void OdRxVariant::copyFrom(const OdRxObject* source)
{
    const OdRxVariantPtr other{OdRxObjectPtr(source)};
    if (other.isNull())
        odThrow(eNullPtr);
    OdVariant::operator=(*other);
}

bool OdRxVariant::isEqualTo(const OdRxObject* other) const
{
    const OdRxVariantPtr variant = cast(other);
    return !variant.isNull() && static_cast<const OdVariant&>(*this) == static_cast<const OdVariant&>(*variant);
}
