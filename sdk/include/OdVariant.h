// A value of one of several types.
#pragma once

#include <variant>

#include "OdArray.h"
#include "OdString.h"
#include "RxObject.h"
#include "StringArray.h"

using OdRxObjectPtrArray = OdArray<OdRxObjectPtr>;

/** An OdVariant holds one value together with its type, or nothing. Asking for a type that it does not hold throws
   OdError (eInvalidInput). It is a plain value. */
class OdVariant
{
public:
    enum Type : int
    {
        kVoid = 0x0000,
        kString = 0x0001,
        kBool = 0x0002,
        kInt8 = 0x0003,
        kInt16 = 0x0005,
        kInt32 = 0x0007,
        kInt64 = 0x0008,
        kDouble = 0x0009,
        kAnsiString = 0x000A,
        kRxObjectPtr = 0x0020,
        kArray = 0x0040 ///< with the type of the elements
    };

    OdVariant() = default;
    OdVariant(const OdString& value) : m_value(value) {}
    OdVariant(const OdChar* value) : m_value(OdString(value)) {}
    OdVariant(bool value) : m_value(value) {}
    OdVariant(OdInt8 value) : m_value(value) {}
    OdVariant(OdInt16 value) : m_value(value) {}
    OdVariant(OdInt32 value) : m_value(value) {}
    OdVariant(OdInt64 value) : m_value(value) {}
    OdVariant(double value) : m_value(value) {}
    OdVariant(const OdRxObjectPtr& value) : m_value(value) {}
    OdVariant(const OdStringArray& value) : m_value(value) {}
    OdVariant(const OdInt32Array& value) : m_value(value) {}
    OdVariant(const OdDoubleArray& value) : m_value(value) {}
    OdVariant(const OdRxObjectPtrArray& value) : m_value(value) {}

    /** The type, for an array kArray together with the type of its elements. */
    int varType() const;
    Type type() const { return static_cast<Type>(varType() & ~kArray); }
    bool isArray() const { return (varType() & kArray) != 0; }
    bool isVoid() const { return varType() == kVoid; }

    const OdString& getString() const { return get<OdString>(); }
    bool getBool() const { return get<bool>(); }
    OdInt8 getInt8() const { return get<OdInt8>(); }
    OdInt16 getInt16() const { return get<OdInt16>(); }
    OdInt32 getInt32() const { return get<OdInt32>(); }
    OdInt64 getInt64() const { return get<OdInt64>(); }
    double getDouble() const { return get<double>(); }
    OdRxObjectPtr getRxObjectPtr() const { return get<OdRxObjectPtr>(); }
    const OdStringArray& getStringArray() const { return get<OdStringArray>(); }
    const OdInt32Array& getInt32Array() const { return get<OdInt32Array>(); }
    const OdDoubleArray& getDoubleArray() const { return get<OdDoubleArray>(); }
    const OdRxObjectPtrArray& getRxObjectPtrArray() const { return get<OdRxObjectPtrArray>(); }

    OdVariant& setString(const OdString& value) { return set(value); }
    OdVariant& setBool(bool value) { return set(value); }
    OdVariant& setInt8(OdInt8 value) { return set(value); }
    OdVariant& setInt16(OdInt16 value) { return set(value); }
    OdVariant& setInt32(OdInt32 value) { return set(value); }
    OdVariant& setInt64(OdInt64 value) { return set(value); }
    OdVariant& setDouble(double value) { return set(value); }
    OdVariant& setRxObjectPtr(const OdRxObjectPtr& value) { return set(value); }
    OdVariant& setStringArray(const OdStringArray& value) { return set(value); }
    OdVariant& setInt32Array(const OdInt32Array& value) { return set(value); }
    OdVariant& setDoubleArray(const OdDoubleArray& value) { return set(value); }
    OdVariant& setRxObjectPtrArray(const OdRxObjectPtrArray& value) { return set(value); }

    bool operator==(const OdVariant& other) const { return m_value == other.m_value; }

private:
    template<class T>
    const T& get() const
    {
        const T* value = std::get_if<T>(&m_value);
        if (!value)
            throwWrongType();
        return *value;
    }
    template<class T>
    OdVariant& set(const T& value)
    {
        m_value = value;
        return *this;
    }
    [[noreturn]] static void throwWrongType();

    std::variant<std::monostate, OdString, bool, OdInt8, OdInt16, OdInt32, OdInt64, double, OdRxObjectPtr,
                 OdStringArray, OdInt32Array, OdDoubleArray, OdRxObjectPtrArray>
        m_value;
};
