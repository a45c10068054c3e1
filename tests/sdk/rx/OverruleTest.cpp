// Attacks overrules: their order, classes they do not apply to, removing while others stay.
#include "RxOverrule.h"

#include <gtest/gtest.h>

#include "OdaCommon.h"
#include "RxObjectImpl.h"
#include "RxVariant.h"
#include "StaticRxObject.h"

namespace
{

class NamingOverrule : public OdRxOverrule
{
public:
    explicit NamingOverrule(OdChar name, bool applies = true) : name(name), applies(applies) {}
    bool isApplicable(const OdRxObject*) const override { return applies; }

    OdChar name;
    bool applies;
};

OdString namesFor(const OdRxObject* subject)
{
    OdString names;
    const OdRxClass* kind = OdRxOverrule::desc();
    for (OdRxOverrule* at = OdRxOverruleInternals::first(subject, kind); at;
         at = OdRxOverruleInternals::next(subject, kind, at))
        names += static_cast<NamingOverrule*>(at)->name;
    return names;
}

TEST(Overrule, TheNearestClassAndTheLatestAddedComesFirst)
{
    const OdRxVariantPtr subject = OdRxVariantValue(1.0);
    OdStaticRxObject<NamingOverrule> a(L'a'), b(L'b'), c(L'c'), d(L'd', false);
    OdRxClass* const own = OdRxVariant::desc();
    OdRxClass* const base = OdRxObject::desc();
    EXPECT_FALSE(OdRxOverruleInternals::hasAny());
    EXPECT_EQ(OdRxOverrule::addOverrule(own, &a), eOk);
    EXPECT_EQ(OdRxOverrule::addOverrule(base, &b), eOk);
    EXPECT_EQ(OdRxOverrule::addOverrule(own, &c), eOk);
    EXPECT_EQ(OdRxOverrule::addOverrule(own, &d, true), eOk);
    EXPECT_TRUE(namesFor(subject) == L"cab");
    EXPECT_EQ(OdRxOverrule::addOverrule(own, &c), eDuplicateKey);
    EXPECT_EQ(OdRxOverrule::addOverrule(nullptr, &c), eNullPtr);
    EXPECT_EQ(OdRxOverrule::addOverrule(own, nullptr), eNullPtr);
    EXPECT_EQ(OdRxOverrule::removeOverrule(base, &a), eKeyNotFound);
    EXPECT_EQ(OdRxOverrule::removeOverrule(own, &c), eOk);
    EXPECT_EQ(OdRxOverrule::removeOverrule(own, &c), eKeyNotFound);
    EXPECT_EQ(OdRxOverrule::addOverrule(own, &c, true), eOk);
    EXPECT_TRUE(namesFor(subject) == L"acb");
    EXPECT_TRUE(namesFor(&a) == L"b") << "only its base class is overruled";
    EXPECT_TRUE(OdRxOverrule::hasOverrule(&a) && !OdRxOverrule::hasOverrule(nullptr));
    for (OdRxOverrule* overrule :
         {static_cast<OdRxOverrule*>(&a), static_cast<OdRxOverrule*>(&c), static_cast<OdRxOverrule*>(&d)})
        EXPECT_EQ(OdRxOverrule::removeOverrule(own, overrule), eOk);
    EXPECT_EQ(OdRxOverrule::removeOverrule(base, &b), eOk);
    EXPECT_FALSE(OdRxOverruleInternals::hasAny() || OdRxOverrule::hasOverrule(subject));
}

} // namespace
