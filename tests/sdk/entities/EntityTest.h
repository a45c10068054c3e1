// What the tests of entities share: the SDK started once, entities made from groups written as text, boxes compared.
#pragma once

#include <cmath>
#include <cstdlib>
#include <cwchar>
#include <memory>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "DbEntity.h"
#include "Gi/GiShapedText.h"
#include "OdError.h"
#include "db/DxfClassTable.h"
#include "db/GroupCodes.h"
#include "db/ObjectCore.h"
#include "entities/EntityClasses.h"
#include "support/Sdk.h"

namespace entitytest
{

class EntityTest : public testing::Test
{
protected:
    EntityTest() { support::startSdk(); }
};

/// Groups written as "code value" pairs divided by bars: "100 AcDbLine|10 1.5|20 2". Values of integer and real codes
/// become numbers, all others texts.
inline oddb::Groups groupsFrom(std::string_view text)
{
    oddb::GroupsBuilder groups;
    while (!text.empty())
    {
        const std::size_t bar = text.find('|');
        const std::string item(text.substr(0, bar));
        text.remove_prefix(bar == std::string_view::npos ? text.size() : bar + 1);
        const std::size_t blank = item.find(' ');
        const int code = std::atoi(item.c_str());
        const std::string value = blank == std::string::npos ? std::string() : item.substr(blank + 1);
        const bool real = (code >= 10 && code <= 59) || (code >= 110 && code <= 149) || (code >= 210 && code <= 239) ||
                          (code >= 460 && code <= 469);
        const bool integer = (code >= 60 && code <= 99) || (code >= 160 && code <= 179) ||
                             (code >= 270 && code <= 289) || (code >= 370 && code <= 389) ||
                             (code >= 420 && code <= 429) || (code >= 440 && code <= 459);
        if (real)
            groups.real(code, std::strtod(value.c_str(), nullptr));
        else if (integer)
            groups.integer(code, std::strtoll(value.c_str(), nullptr, 10));
        else
            groups.text(code, value);
    }
    return groups.finish();
}

/// A new entity of the class that files call by this name, with these groups behind the common part. The first marker
/// may be left out.
inline OdDbEntityPtr entityFrom(std::string_view dxfName, std::string_view text)
{
    const oddb::DxfClass* named = text.starts_with("100 ") || text.empty() ? nullptr : oddb::findDxfClass(dxfName);
    const std::string marker = named ? "100 " + std::string(named->subclasses[1]->marker) + "|" : std::string();
    const oddb::Groups groups = groupsFrom("100 AcDbEntity|8 0|" + marker + std::string(text));
    const oddb::DxfClass* known = entityclasses::classFor(dxfName, groups);
    const OdString className = known ? odUtf8ToString(known->className) : OdString(L"OdDbProxyEntity");
    OdDbEntityPtr entity = OdDbEntity::cast(odrxSafeCreateObject(className));
    oddb::ObjectCore::putGroups(*entity, groups);
    return entity;
}

/// A line of text of height 1 in the font of drawings.
inline OdGiShapedText shapedText(const wchar_t* text)
{
    return odgiShapeText(OdGiTextStyle(), text, static_cast<OdInt32>(std::wcslen(text)), true);
}

struct Box
{
    double x0, y0, z0, x1, y1, z1;
};

inline void expectBox(const OdGeExtents3d& extents, const Box& box, double tolerance, const char* what)
{
    const OdGePoint3d low = extents.minPoint();
    const OdGePoint3d high = extents.maxPoint();
    EXPECT_NEAR(low.x, box.x0, tolerance) << what;
    EXPECT_NEAR(low.y, box.y0, tolerance) << what;
    EXPECT_NEAR(low.z, box.z0, tolerance) << what;
    EXPECT_NEAR(high.x, box.x1, tolerance) << what;
    EXPECT_NEAR(high.y, box.y1, tolerance) << what;
    EXPECT_NEAR(high.z, box.z1, tolerance) << what;
}

inline void expectBoxOf(const OdDbEntity& entity, const Box& box, double tolerance, const std::string& what)
{
    OdGeExtents3d extents;
    ASSERT_EQ(entity.getGeomExtents(extents), eOk) << what;
    expectBox(extents, box, tolerance, what.c_str());
}

inline Box boxOf(const OdDbEntity& entity)
{
    OdGeExtents3d extents;
    EXPECT_EQ(entity.getGeomExtents(extents), eOk);
    const OdGePoint3d low = extents.minPoint();
    const OdGePoint3d high = extents.maxPoint();
    return {low.x, low.y, low.z, high.x, high.y, high.z};
}

} // namespace entitytest
