// A DWG-style filer over a list of values in memory that shows which values of which kinds came in which order, and
// takes any type of filer's place.
#pragma once

#include <sstream>
#include <utility>
#include <vector>

#include "DbDatabase.h"
#include "DbFiler.h"
#include "Ge/GePoint3d.h"
#include "OdError.h"
#include "RxObjectImpl.h"

namespace plugintest
{

/// Values as kind and text.
using DwgItems = std::vector<std::pair<std::string, OdString>>;

/// "int32 7|string text": kinds and texts, divided by bars.
inline DwgItems dwgItems(const std::string& text)
{
    DwgItems items;
    std::istringstream all(text);
    for (std::string item; std::getline(all, item, '|');)
        items.emplace_back(item.substr(0, item.find(' ')), odUtf8ToString(item.substr(item.find(' ') + 1)));
    return items;
}

constexpr OdDbFiler::FilerType kAllFilers[] = {
    OdDbFiler::kFileFiler,    OdDbFiler::kCopyFiler,        OdDbFiler::kUndoFiler,      OdDbFiler::kBagFiler,
    OdDbFiler::kIdXlateFiler, OdDbFiler::kPageFiler,        OdDbFiler::kDeepCloneFiler, OdDbFiler::kIdFiler,
    OdDbFiler::kPurgeFiler,   OdDbFiler::kWblockCloneFiler,
};

class ItemsDwgFiler : public OdDbDwgFiler
{
public:
    ItemsDwgFiler(OdDbDatabase* database, FilerType type, DwgItems items = {})
        : items(std::move(items)), m_db(database), m_type(type)
    {
    }

    DwgItems items;

    bool isAtEnd() const { return m_next == items.size(); }

    FilerType filerType() const override { return m_type; }
    OdDbDatabase* database() const override { return m_db; }
    void seek(OdInt64 offset, SeekType) override { m_next = static_cast<std::size_t>(offset); }
    OdUInt64 tell() const override { return m_next; }

    bool rdBool() override { return number("bool") != 0; }
    OdString rdString() override { return take("string"); }
    OdInt16 rdInt16() override { return static_cast<OdInt16>(number("int16")); }
    OdInt32 rdInt32() override { return static_cast<OdInt32>(number("int32")); }
    OdDbObjectId rdSoftOwnershipId() override { return id("softOwner"); }
    OdDbObjectId rdHardOwnershipId() override { return id("hardOwner"); }
    OdDbObjectId rdHardPointerId() override { return id("hardPointer"); }
    OdDbObjectId rdSoftPointerId() override { return id("softPointer"); }
    OdGePoint3d rdPoint3d() override
    {
        OdGePoint3d point;
        std::wistringstream text{std::wstring(take("point").view())};
        text >> point.x >> point.y >> point.z;
        return point;
    }
    void rdBytes(void*, OdUInt32) override { refuse(); }
    OdInt8 rdInt8() override { refuse(); }
    OdInt64 rdInt64() override { refuse(); }
    double rdDouble() override { refuse(); }
    OdDbHandle rdDbHandle() override { refuse(); }
    OdGePoint2d rdPoint2d() override { refuse(); }
    OdGeVector2d rdVector2d() override { refuse(); }
    OdGeVector3d rdVector3d() override { refuse(); }
    OdGeScale3d rdScale3d() override { refuse(); }

    void wrBool(bool value) override { put("bool", OdString().format(L"%d", int(value))); }
    void wrString(const OdString& value) override { put("string", value); }
    void wrInt16(OdInt16 value) override { put("int16", OdString().format(L"%d", value)); }
    void wrInt32(OdInt32 value) override { put("int32", OdString().format(L"%d", value)); }
    void wrSoftOwnershipId(const OdDbObjectId& id) override { put("softOwner", id.getHandle().ascii()); }
    void wrHardOwnershipId(const OdDbObjectId& id) override { put("hardOwner", id.getHandle().ascii()); }
    void wrSoftPointerId(const OdDbObjectId& id) override { put("softPointer", id.getHandle().ascii()); }
    void wrHardPointerId(const OdDbObjectId& id) override { put("hardPointer", id.getHandle().ascii()); }
    void wrPoint3d(const OdGePoint3d& value) override
    {
        put("point", OdString().format(L"%g %g %g", value.x, value.y, value.z));
    }
    void wrBytes(const void*, OdUInt32) override { refuse(); }
    void wrInt8(OdInt8) override { refuse(); }
    void wrInt64(OdInt64) override { refuse(); }
    void wrDouble(double) override { refuse(); }
    void wrDbHandle(const OdDbHandle&) override { refuse(); }
    void wrPoint2d(const OdGePoint2d&) override { refuse(); }
    void wrVector2d(const OdGeVector2d&) override { refuse(); }
    void wrVector3d(const OdGeVector3d&) override { refuse(); }
    void wrScale3d(const OdGeScale3d&) override { refuse(); }

private:
    /// The objects of the plug-in have none of these.
    [[noreturn]] static void refuse() { throw OdError(eNotApplicable); }

    void put(const char* kind, const OdString& text) { items.emplace_back(kind, text); }
    OdString take(const char* kind)
    {
        if (isAtEnd())
            throw OdError(eEndOfFile);
        if (items[m_next].first != kind)
            throw OdError(eDwgObjectImproperlyRead);
        return items[m_next++].second;
    }
    long number(const char* kind) { return std::wcstol(take(kind), nullptr, 10); }
    OdDbObjectId id(const char* kind) { return m_db->getOdDbObjectId(OdDbHandle(take(kind)), false); }

    OdDbDatabase* m_db;
    FilerType m_type;
    std::size_t m_next = 0;
};

} // namespace plugintest
