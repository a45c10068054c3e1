// A DXF filer over a list of groups in memory, so that objects can be given groups in any order.
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

/// Groups as code and text; ids, integers and points are written as text too.
using DxfItems = std::vector<std::pair<int, OdString>>;

/// "70 1|1 text": codes and texts, divided by bars.
inline DxfItems dxfItems(const std::string& text)
{
    DxfItems items;
    std::istringstream all(text);
    for (std::string item; std::getline(all, item, '|');)
        items.emplace_back(std::stoi(item), odUtf8ToString(item.substr(item.find(' ') + 1)));
    return items;
}

class ItemsDxfFiler : public OdDbDxfFiler
{
public:
    explicit ItemsDxfFiler(OdDbDatabase* database, DxfItems items = {}, FilerType type = kFileFiler)
        : items(std::move(items)), m_db(database), m_type(type)
    {
    }

    DxfItems items;

    FilerType filerType() const override { return m_type; }
    OdDbDatabase* database() const override { return m_db; }
    void rewindFiler() override { m_next = 0; }
    int nextItem() override
    {
        if (atEOF())
            throw OdError(eEndOfFile);
        return items[m_next++].first;
    }
    void pushBackItem() override { --m_next; }
    int currentGroupCode() const override { return items[m_next - 1].first; }
    bool atEOF() override { return m_next == items.size(); }
    bool atExtendedData() override { return false; }
    bool atSubclassData(const OdString& name) override
    {
        const bool is = !atEOF() && items[m_next] == std::make_pair(100, name);
        m_next += is;
        return is;
    }

    OdString rdString() override { return items[m_next - 1].second; }
    OdInt16 rdInt16() override { return static_cast<OdInt16>(rdInt32()); }
    OdInt32 rdInt32() override { return static_cast<OdInt32>(std::wcstol(rdString(), nullptr, 10)); }
    OdDbObjectId rdObjectId() override { return m_db->getOdDbObjectId(OdDbHandle(rdString()), true); }
    bool rdBool() override { return rdInt32() != 0; }
    OdInt8 rdInt8() override { refuse(); }
    OdInt64 rdInt64() override { refuse(); }
    OdUInt8 rdUInt8() override { refuse(); }
    OdUInt16 rdUInt16() override { refuse(); }
    OdUInt32 rdUInt32() override { refuse(); }
    OdUInt64 rdUInt64() override { refuse(); }
    OdDbHandle rdHandle() override { refuse(); }
    double rdDouble() override { refuse(); }
    double rdAngle() override { refuse(); }
    void rdPoint2d(OdGePoint2d&) override { refuse(); }
    void rdPoint3d(OdGePoint3d& point) override
    {
        std::wistringstream text{std::wstring(rdString().view())};
        text >> point.x >> point.y >> point.z;
    }
    void rdVector2d(OdGeVector2d&) override { refuse(); }
    void rdVector3d(OdGeVector3d&) override { refuse(); }
    void rdScale3d(OdGeScale3d&) override { refuse(); }
    void rdBinaryChunk(OdBinaryData&) override { refuse(); }

    void wrString(int code, const OdString& value) override { items.emplace_back(code, value); }
    void wrSubclassMarker(const OdString& value) override { wrString(100, value); }
    void wrInt16(int code, OdInt16 value) override { wrInt32(code, value); }
    void wrInt32(int code, OdInt32 value) override { wrString(code, OdString().format(L"%d", value)); }
    void wrObjectId(int code, OdDbObjectId id) override { wrString(code, id.getHandle().ascii()); }
    void wrName(const OdString&) override { refuse(); }
    void wrBool(int code, bool value) override { wrInt32(code, value); }
    void wrInt8(int, OdInt8) override { refuse(); }
    void wrInt64(int, OdInt64) override { refuse(); }
    void wrUInt8(int, OdUInt8) override { refuse(); }
    void wrUInt16(int, OdUInt16) override { refuse(); }
    void wrUInt32(int, OdUInt32) override { refuse(); }
    void wrUInt64(int, OdUInt64) override { refuse(); }
    void wrHandle(int, OdDbHandle) override { refuse(); }
    void wrDouble(int, double, int) override { refuse(); }
    void wrAngle(int, double, int) override { refuse(); }
    void wrPoint2d(int, const OdGePoint2d&, int) override { refuse(); }
    void wrPoint3d(int code, const OdGePoint3d& value, int) override
    {
        wrString(code, OdString().format(L"%g %g %g", value.x, value.y, value.z));
    }
    void wrVector2d(int, const OdGeVector2d&, int) override { refuse(); }
    void wrVector3d(int, const OdGeVector3d&, int) override { refuse(); }
    void wrScale3d(int, const OdGeScale3d&, int) override { refuse(); }
    void wrBinaryChunk(int, const OdUInt8*, OdUInt32) override { refuse(); }

private:
    /// The objects of the plug-in have none of these.
    [[noreturn]] static void refuse() { throw OdError(eNotApplicable); }

    OdDbDatabase* m_db;
    FilerType m_type;
    std::size_t m_next = 0;
};

} // namespace plugintest
