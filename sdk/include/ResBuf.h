// Values of any type in a chain: extended data of objects, arguments and results of commands.
#pragma once

#include <atomic>
#include <memory>
#include <variant>

#include "CmColorBase.h"
#include "DbHandle.h"
#include "DbObjectId.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector2d.h"
#include "Ge/GeVector3d.h"
#include "OdBinaryData.h"
#include "RxObject.h"

namespace oddb
{
class ChainAccess;
} // namespace oddb

class OdResBuf;
using OdResBufPtr = OdSmartPtr<OdResBuf>;

/** An OdResBuf is one element of a chain: a type, a value and the next element, to which it holds a reference, so that
    the first element keeps the whole chain. Chains of any length may be made and released. A chain is used by one
   thread at a time.

    The type says what the value is for; get... gives the value in the form asked for and throws OdError
   (eInvalidResBuf) when the value that was set is of another form. Integers are read in any width that holds them, also
   as a bool; 2d and 3d points as each other; a new element has no value. */
class OdResBuf : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdResBuf);

    /** The types, which are DXF group codes up to 1071. */
    enum ValueType : int
    {
        kDxfInvalid = -9999,
        kDxfXDictionary = -6,
        kDxfPReactors = -5,
        kDxfOperator = -4,
        kDxfXDataStart = -3,
        kDxfFirstEntId = -2,
        kDxfHeaderId = -2,
        kDxfEnd = -1,
        kDxfStart = 0,
        kDxfText = 1,
        kDxfXRefPath = 1,
        kDxfBlockName = 2,
        kDxfAttributeTag = 2,
        kDxfSymbolTableName = 2,
        kDxfShapeName = 2,
        kDxfSymTableRecName = 2,
        kDxfAttributePrompt = 3,
        kDxfDimStyleName = 3,
        kDxfLinetypeProse = 3,
        kDxfTextFontFile = 3,
        kDxfDescription = 3,
        kDxfDimPostStr = 3,
        kDxfTextBigFontFile = 4,
        kDxfDimAPostStr = 4,
        kDxfHandle = 5,
        kDxfLinetypeName = 6,
        kDxfTextStyleName = 7,
        kDxfLayerName = 8,
        kDxfVarName = 9,
        kDxfXCoord = 10,
        kDxfYCoord = 20,
        kDxfZCoord = 30,
        kDxfElevation = 38,
        kDxfThickness = 39,
        kDxfReal = 40,
        kDxfTxtSize = 40,
        kDxfLinetypeScale = 48,
        kDxfAngle = 50,
        kDxfVisibility = 60,
        kDxfColor = 62,
        kDxfLayerLinetype = 61,
        kDxfEntitiesFollow = 66,
        kDxfInt16 = 70,
        kDxfInt32 = 90,
        kDxfSubclass = 100,
        kDxfEmbeddedObjectStart = 101,
        kDxfControlString = 102,
        kDxfDimVarHandle = 105,
        kDxfNormalX = 210,
        kDxfNormalY = 220,
        kDxfNormalZ = 230,
        kDxfXXInt16 = 170,
        kDxfInt64 = 160,
        kDxfInt8 = 280,
        kDxfBool = 290,
        kDxfXTextString = 300,
        kDxfBinaryChunk = 310,
        kDxfArbHandle = 320,
        kDxfSoftPointerId = 330,
        kDxfHardPointerId = 340,
        kDxfSoftOwnershipId = 350,
        kDxfHardOwnershipId = 360,
        kDxfLineWeight = 370,
        kDxfPlotStyleNameId = 390,
        kDxfLayoutName = 410,
        kDxfComment = 999,
        kDxfXdAsciiString = 1000,
        kDxfRegAppName = 1001,
        kDxfXdControlString = 1002,
        kDxfXdLayerName = 1003,
        kDxfXdBinaryChunk = 1004,
        kDxfXdHandle = 1005,
        kDxfXdXCoord = 1010,
        kDxfXdYCoord = 1020,
        kDxfXdZCoord = 1030,
        kDxfXdWorldXCoord = 1011,
        kDxfXdWorldYCoord = 1021,
        kDxfXdWorldZCoord = 1031,
        kDxfXdWorldXDisp = 1012,
        kDxfXdWorldXDir = 1013,
        kDxfXdReal = 1040,
        kDxfXdDist = 1041,
        kDxfXdScale = 1042,
        kDxfXdInteger16 = 1070,
        kDxfXdInteger32 = 1071,

        kRtNone = 5000,
        kRtDouble = 5001,
        kRtPoint2d = 5002,
        kRtInt16 = 5003,
        kRtAngle = 5004,
        kRtString = 5005,
        kRtEntName = 5006,
        kRtPickSet = 5007,
        kRtOrient = 5008,
        kRtPoint3d = 5009,
        kRtInt32 = 5010,
        kRtVector3d = 5011,
        kRtVector2d = 5012,
        kRtColor = 5013,
        kRtVoid = 5014,
        kRtListBeg = 5016,
        kRtListEnd = 5017,
        kRtDote = 5018,
        kRtNil = 5019,
        kRtDXF0 = 5020,
        kRtT = 5021,
        kRtResBuf = 5023,
        kRtModeless = 5027,

        kRtBool = kDxfBool,
        kRtInt8 = kDxfInt8,
        kRtInt64 = kDxfInt64,
        kRtHandle = kDxfHandle,
        kRtSoftPointerId = kDxfSoftPointerId,
        kRtHardPointerId = kDxfHardPointerId,
        kRtObjectId = kDxfSoftPointerId
    };

    /** A new element that is the end of its chain. */
    static OdResBufPtr newRb(int resType = kRtNone);
    static OdResBufPtr newRb(int resType, bool value);
    static OdResBufPtr newRb(int resType, OdInt8 value) { return newInteger(resType, value); }
    static OdResBufPtr newRb(int resType, OdUInt8 value) { return newInteger(resType, value); }
    static OdResBufPtr newRb(int resType, OdInt16 value) { return newInteger(resType, value); }
    static OdResBufPtr newRb(int resType, OdUInt16 value) { return newInteger(resType, value); }
    static OdResBufPtr newRb(int resType, OdInt32 value) { return newInteger(resType, value); }
    static OdResBufPtr newRb(int resType, OdUInt32 value) { return newInteger(resType, value); }
    static OdResBufPtr newRb(int resType, OdInt64 value) { return newInteger(resType, value); }
    static OdResBufPtr newRb(int resType, double value);
    static OdResBufPtr newRb(int resType, const OdChar* value) { return newRb(resType, OdString(value)); }
    static OdResBufPtr newRb(int resType, const OdString& value);
    static OdResBufPtr newRb(int resType, const OdGePoint2d& value);
    static OdResBufPtr newRb(int resType, const OdGePoint3d& value);
    static OdResBufPtr newRb(int resType, const OdGeVector2d& value);
    static OdResBufPtr newRb(int resType, const OdGeVector3d& value);
    static OdResBufPtr newRb(int resType, const OdDbObjectId& value);
    static OdResBufPtr newRb(int resType, const OdCmColorBase& value);
    static OdResBufPtr newRb(int resType, const OdResBufPtr& value);

    int restype() const { return m_resType; }
    /** Changes the type and leaves the value. */
    void setRestype(int resType) { m_resType = resType; }

    // ---- The chain -----------------------------------------------------------------------------------------------

    /** The next element, null at the end. */
    OdResBufPtr next() const { return share(m_next.get()); }
    /** Links an element (and what is behind it) behind this one, in place of what was there; null ends the chain here.
        Returns the element linked. Throws OdError (eInvalidInput), with nothing changed, for the element itself. Chains
        must not be made to run in a circle. */
    OdResBufPtr setNext(OdResBuf* element);
    /** The last element of the chain from here. Appending one element after the other to the last one from the same
        first element costs the same each time, however long the chain gets. */
    OdResBufPtr last() const;
    /** Puts an element (and what is behind it) between this one and the next. Returns the element put in. Throws
       OdError (eNullPtr, eInvalidInput) as setNext. */
    OdResBufPtr insert(OdResBuf* element);
    /** How many elements there are from here. */
    OdUInt32 numElements() const;

    // ---- The value -----------------------------------------------------------------------------------------------

    bool hasValue() const { return m_value.index() != 0; }

    OdString getString() const { return value<OdString>(); }
    bool getBool() const;
    OdInt8 getInt8() const;
    OdInt16 getInt16() const;
    OdInt32 getInt32() const;
    OdInt64 getInt64() const;
    double getDouble() const { return value<double>(); }
    OdGePoint2d getPoint2d() const;
    OdGePoint3d getPoint3d() const;
    OdGeVector2d getVector2d() const { return getPoint2d().asVector(); }
    OdGeVector3d getVector3d() const { return getPoint3d().asVector(); }
    OdDbHandle getHandle() const;
    /** The id that was set; with a database, also the id that it has for a handle that was set, null when it has none.
     */
    OdDbObjectId getObjectId(OdDbDatabase* database = nullptr) const;
    /** The selection set as an object, null when null was set. */
    OdRxObjectPtr getPickSet() const { return value<OdRxObjectPtr>(); }
    OdResBufPtr getResBuf() const { return value<OdResBufPtr>(); }
    OdBinaryData getBinaryChunk() const { return value<OdBinaryData>(); }
    OdCmColor getColor() const;

    /** Each sets the value and leaves the type. */
    void setString(const OdString& value) { m_value = value; }
    void setBool(bool value) { m_value = value; }
    void setInt8(OdInt8 value) { m_value = OdInt64(value); }
    void setInt16(OdInt16 value) { m_value = OdInt64(value); }
    void setInt32(OdInt32 value) { m_value = OdInt64(value); }
    void setInt64(OdInt64 value) { m_value = OdInt64(value); }
    void setDouble(double value) { m_value = value; }
    void setPoint2d(const OdGePoint2d& value) { m_value = value; }
    void setPoint3d(const OdGePoint3d& value) { m_value = value; }
    void setVector2d(const OdGeVector2d& value) { m_value = value.asPoint(); }
    void setVector3d(const OdGeVector3d& value) { m_value = value.asPoint(); }
    void setHandle(const OdDbHandle& value) { m_value = value; }
    void setObjectId(const OdDbObjectId& value) { m_value = value; }
    void setPickSet(const OdRxObject* value) { m_value = OdRxObjectPtr(value); }
    /** Throws OdError (eInvalidInput), with nothing changed, for the element itself. */
    void setResBuf(OdResBuf* value);
    void setBinaryChunk(const OdBinaryData& value) { m_value = value; }
    void setColor(const OdCmColorBase& value) { m_value = std::make_shared<const OdCmColor>(value); }

    // ---- As an object --------------------------------------------------------------------------------------------

    /** References are counted without regard to other threads, as a chain is for one at a time. */
    void addRef() override { ++m_references; }
    void release() override
    {
        if (--m_references == 0)
            delete this;
    }
    long numRefs() const override { return m_references; }

    /** Copies the whole chain from here, nested chains included; objects are shared. */
    OdRxObjectPtr clone() const override;
    /** Takes over type and value of another element; the chain stays as it is. */
    void copyFrom(const OdRxObject* source) override;
    /** True for an element with the same type and value; what is behind does not matter. */
    bool isEqualTo(const OdRxObject* other) const override;

protected:
    OdResBuf() = default;
    ~OdResBuf() override;

private:
    friend class oddb::ChainAccess;
    using Value =
        std::variant<std::monostate, bool, OdInt64, double, OdString, OdGePoint2d, OdGePoint3d, OdDbHandle,
                     OdDbObjectId, OdRxObjectPtr, OdResBufPtr, OdBinaryData, std::shared_ptr<const OdCmColor>>;

    static OdResBufPtr newInteger(int resType, OdInt64 value);
    template<class T>
    const T& value() const
    {
        const T* held = std::get_if<T>(&m_value);
        if (!held)
            throwWrongType();
        return *held;
    }
    [[noreturn]] static void throwWrongType();
    template<class T>
    T narrow() const;
    static OdResBufPtr share(OdResBuf* element)
    {
        if (element)
            ++element->m_references;
        return OdResBufPtr(element, kOdRxObjAttach);
    }
    void checkLink(const OdResBuf* element) const;
    void relink(OdResBuf* element);
    OdResBuf* findLast() const;

    long m_references = 1;
    int m_resType = kRtNone;
    Value m_value;
    OdResBufPtr m_next;
    mutable OdResBuf* m_knownLater = nullptr; ///< an element of this chain, as long as no link was broken since
    mutable OdUInt64 m_linksBrokenThen = 0;
};
