// Values as objects, so that they can be kept wherever objects can.
#pragma once

#include "OdVariant.h"
#include "RxObjectImpl.h"

/** An OdRxVariant is an object that holds one OdVariant. */
class OdRxVariant : public OdRxObject, public OdVariant
{
public:
    ODRX_DECLARE_MEMBERS(OdRxVariant);

    /** A new object with that value. */
    static OdSmartPtr<OdRxVariant> createObject(const OdVariant& value);

    OdRxObjectPtr clone() const override;
    void copyFrom(const OdRxObject* source) override;
    bool isEqualTo(const OdRxObject* other) const override;
};
using OdRxVariantPtr = OdSmartPtr<OdRxVariant>;

/** A smart pointer to a new OdRxVariant with a value: OdRxVariantValue(1.5). */
class OdRxVariantValue : public OdRxVariantPtr
{
public:
    OdRxVariantValue() = default;
    OdRxVariantValue(const OdVariant& value) : OdRxVariantPtr(OdRxVariant::createObject(value)) {}
    template<class Value>
    requires std::is_constructible_v<OdVariant, const Value&>
    explicit OdRxVariantValue(const Value& value) : OdRxVariantValue(OdVariant(value)) {}
    /** The value in an object. Throws OdError_NotThatKindOfClass when it is no OdRxVariant. */
    explicit OdRxVariantValue(const OdRxObjectPtr& object) : OdRxVariantPtr(object) {}
};
