// What the tests of persistent forms share: filers of every type over values in memory.
#pragma once

#include <algorithm>
#include <sstream>

#include "db/GroupsDxfFiler.h"
#include "db/MemoryFilers.h"
#include "support/DrawingFiles.h"
#include "support/PluginTest.h"

namespace plugintest
{

constexpr OdDbFiler::FilerType kAllFilers[] = {
    OdDbFiler::kFileFiler,    OdDbFiler::kCopyFiler,        OdDbFiler::kUndoFiler,      OdDbFiler::kBagFiler,
    OdDbFiler::kIdXlateFiler, OdDbFiler::kPageFiler,        OdDbFiler::kDeepCloneFiler, OdDbFiler::kIdFiler,
    OdDbFiler::kPurgeFiler,   OdDbFiler::kWblockCloneFiler,
};

using DwgFilerPtr = OdSmartPtr<oddb::MemoryDwgFiler>;
/// Groups as code and text; integers and points are written as text too, ids as handles.
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

class FilingTest : public PluginTest
{
protected:
    static constexpr const OdChar* kGuid = L"11111111-2222-4333-8444-555555555555";

    /// A filer to which the object has written what every object writes, or all that it has.
    DwgFilerPtr commonOf(OdDbObjectId id, OdDbFiler::FilerType type)
    {
        DwgFilerPtr filer = oddb::MemoryDwgFiler::create(type, db);
        id.safeOpenObject(OdDb::kForRead, true)->OdDbObject::dwgOutFields(filer);
        return filer;
    }
    DwgFilerPtr writtenBy(OdDbObjectId id, OdDbFiler::FilerType type)
    {
        DwgFilerPtr filer = oddb::MemoryDwgFiler::create(type, db);
        id.safeOpenObject(OdDb::kForRead, true)->dwgOutFields(filer);
        return filer;
    }
    static std::vector<std::uint8_t> bytesOf(const DwgFilerPtr& filer)
    {
        return {filer->bytes().begin(), filer->bytes().end()};
    }
    /// Lets the object read all that was written to the filer.
    OdResult read(OdDbObjectId id, const DwgFilerPtr& filer)
    {
        filer->beginReading(filer->filerType(), db);
        return id.safeOpenObject(OdDb::kForWrite, true)->dwgInFields(filer);
    }

    oddb::Groups groupsOf(const DxfItems& items)
    {
        const auto filer = oddb::GroupsDxfFiler::create(db);
        for (const auto& [code, text] : items)
            if (const long number = std::wcstol(text, nullptr, 10); code == 100)
                filer->wrSubclassMarker(text);
            else if (code < 10)
                filer->wrString(code, text);
            else if (code < 60)
                filer->wrPoint3d(code, pointOf(text), OdDbDxfFiler::kDfltPrec);
            else if (code < 90)
                filer->wrInt16(code, static_cast<OdInt16>(number));
            else if (code < 100)
                filer->wrInt32(code, static_cast<OdInt32>(number));
            else if (code < 300)
                filer->wrBool(code, number != 0);
            else
                filer->wrObjectId(code, db->getOdDbObjectId(OdDbHandle(text), true));
        return filer->finish();
    }
    oddb::Groups groupsWrittenBy(OdDbObjectId id, OdDbFiler::FilerType type = OdDbFiler::kFileFiler)
    {
        const auto filer = oddb::GroupsDxfFiler::create(db, type);
        id.safeOpenObject(OdDb::kForRead, true)->dxfOutFields(filer);
        return filer->finish();
    }
    OdResult read(OdDbObjectId id, const DxfItems& items, OdDbFiler::FilerType type = OdDbFiler::kFileFiler)
    {
        const auto filer = oddb::GroupsDxfFiler::createReader(groupsOf(items), db, type);
        return id.safeOpenObject(OdDb::kForWrite, true)->dxfInFields(filer);
    }

    /// The groups in any other order, or without one or more of them, are refused: with which code, says the test.
    void expectOrder(OdDbObjectId id, const DxfItems& good)
    {
        for (std::size_t i = 0; i + 1 < good.size(); ++i)
        {
            const auto at = static_cast<std::ptrdiff_t>(i);
            const OdResult refused = i == 0 ? eBadDxfSequence : eNotImplementedYet;
            DxfItems swapped = good;
            std::swap(swapped[i], swapped[i + 1]);
            EXPECT_EQ(read(id, swapped), swapped[i].first == swapped[i + 1].first ? eOk : refused) << i;
            EXPECT_EQ(read(id, DxfItems(good.begin(), good.begin() + at)), refused) << i;
        }
    }

private:
    static OdGePoint3d pointOf(const OdString& text)
    {
        OdGePoint3d point;
        std::wistringstream numbers{std::wstring(text.view())};
        numbers >> point.x >> point.y >> point.z;
        return point;
    }
};

} // namespace plugintest
