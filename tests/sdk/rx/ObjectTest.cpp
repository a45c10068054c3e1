// Attacks runtime classes, smart pointers and protocol extensions.
#include <gtest/gtest.h>

#include "OdaCommon.h"
#include "RxDictionary.h"
#include "RxObjectImpl.h"
#include "RxProtocolExt.h"
#include "RxVariant.h"
#include "StaticRxObject.h"
#include "support/ErrorCode.h"

namespace
{

class Shape : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(Shape);
    ~Shape() override { --alive; }
    Shape() { ++alive; }
    static inline int alive = 0;
};

class Circle : public Shape
{
public:
    ODRX_DECLARE_MEMBERS(Circle);
};

class Square : public Shape
{
public:
    ODRX_DECLARE_MEMBERS(Square);
};

class Measurer : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(Measurer);
    virtual int measure() const = 0;
};

ODRX_NO_CONS_DEFINE_MEMBERS(Shape, OdRxObject)
ODRX_DXF_DEFINE_MEMBERS(Circle, Shape, RXIMPL_CONSTR, 33, 55, 3, L"ROUND", L"ShapesApp")
ODRX_CONS_DEFINE_MEMBERS(Square, Shape, RXIMPL_CONSTR)
ODRX_NO_CONS_DEFINE_MEMBERS(Measurer, OdRxObject)

class FixedMeasurer : public Measurer
{
public:
    explicit FixedMeasurer(int size) : m_size(size) {}
    int measure() const override { return m_size; }

private:
    int m_size;
};

class RuntimeClasses : public testing::Test
{
protected:
    void SetUp() override
    {
        Shape::rxInit();
        Circle::rxInit();
        Square::rxInit();
        Measurer::rxInit();
    }
    void TearDown() override
    {
        Measurer::rxUninit();
        Square::rxUninit();
        Circle::rxUninit();
        Shape::rxUninit();
        EXPECT_EQ(Shape::alive, 0);
    }
};

TEST(Class, ThatIsNotRegisteredMakesNothing)
{
    const OdError error = support::caught([] { Circle::createObject(); });
    EXPECT_TRUE(error.description() == L"OdDbCircleis not loaded");
    EXPECT_EQ(error.code(), eClassNotRegistered);
    EXPECT_TRUE(support::caught([] { odrxSafeCreateObject(L"OdDbNothing"); }).description() ==
                L"OdDbNothingis not loaded");
    EXPECT_EQ(support::codeOf([] { Circle::rxUninit(); }), eClassNotRegistered);
    EXPECT_EQ(support::codeOf([] { Circle::rxInit(); }), eClassNotRegistered) << "before its parent";
    EXPECT_EQ(Circle::desc(), nullptr);
}

TEST_F(RuntimeClasses, RegisterOnceAndEndInOrder)
{
    EXPECT_EQ(support::codeOf([] { Circle::rxInit(); }), 313);
    EXPECT_EQ(support::codeOf([] { newOdRxClass(L"CIRCLE", Shape::desc()); }), 313) << "names without regard to case";
    EXPECT_EQ(support::codeOf([] { newOdRxClass(L"", Shape::desc()); }), eEmptyName);
    EXPECT_EQ(support::codeOf([] { Shape::rxUninit(); }), eInvalidContext) << "classes derive from it";
    EXPECT_EQ(support::codeOf([] { deleteOdRxClass(nullptr); }), eNullPtr);
    EXPECT_EQ(odrxGetClass(L"circle"), Circle::desc());
    EXPECT_EQ(odrxGetClassByDxfName(L"round"), Circle::desc());
    EXPECT_EQ(odrxGetClassByDxfName(L""), nullptr);
    Circle::rxUninit();
    EXPECT_EQ(odrxGetClass(L"Circle"), nullptr);
    EXPECT_EQ(Circle::desc(), nullptr);
    Circle::rxInit();
    EXPECT_TRUE(odrxClassDictionary()->has(L"Circle"));
}

TEST_F(RuntimeClasses, RecordSaysWhatWasRegistered)
{
    OdDb::MaintReleaseVer maintenance{};
    EXPECT_EQ(Circle::desc()->getClassVersion(&maintenance), OdDb::vAC32);
    EXPECT_EQ(maintenance, OdDb::kMRelease55);
    EXPECT_EQ(Circle::desc()->proxyFlags(), 3u);
    EXPECT_TRUE(Circle::desc()->appName() == L"ShapesApp");
    EXPECT_EQ(Circle::desc()->myParent(), Shape::desc());
    Circle::rxUninit();
    Circle::rxInit([](const OdRxClass* aClass, OdString& name, int version)
                   { name = aClass->name() + OdString().format(L" %d", version); });
    EXPECT_TRUE(Circle::desc()->appName() == L"ShapesApp");
    EXPECT_TRUE(Circle::desc()->appName(OdDb::vAC15) == L"Circle 23");
}

TEST_F(RuntimeClasses, KnowWhatDerivesFromWhat)
{
    const OdSmartPtr<Circle> circle = Circle::createObject();
    EXPECT_TRUE(circle->isKindOf(Circle::desc()) && circle->isKindOf(Shape::desc()));
    EXPECT_TRUE(circle->isKindOf(OdRxObject::desc()));
    EXPECT_FALSE(circle->isKindOf(Square::desc()) || circle->isKindOf(nullptr));
    EXPECT_FALSE(Shape::desc()->isDerivedFrom(Circle::desc()));
    EXPECT_TRUE(Square::cast(circle).isNull() && Circle::cast(nullptr).isNull());
    EXPECT_EQ(support::codeOf([] { Shape::createObject(); }), eNotApplicable) << "abstract";
    EXPECT_EQ(circle->numRefs(), 1);
}

TEST_F(RuntimeClasses, SmartPointersRefuseWhatTheyAreNotFor)
{
    OdSmartPtr<Circle> circle = Circle::createObject();
    OdRxObjectPtr any = circle;
    EXPECT_EQ(circle->numRefs(), 2);
    OdSmartPtr<Square> square;
    try
    {
        square = any;
        FAIL();
    }
    catch (const OdError_NotThatKindOfClass& error)
    {
        EXPECT_EQ(error.code(), eNotThatKindOfClass);
        EXPECT_EQ(error.fromClass(), Circle::desc());
        EXPECT_EQ(error.toClass(), Square::desc());
        EXPECT_TRUE(error.description() == L"Object of class Circle is not of class Square");
    }
    EXPECT_TRUE(square.isNull());
    EXPECT_EQ(circle->numRefs(), 2);
    square = OdRxObjectPtr();
    EXPECT_TRUE(square.isNull());

    OdRxObject* raw = Circle::createObject().detach();
    EXPECT_THROW(OdSmartPtr<Square>(raw, kOdRxObjAttach), OdError_NotThatKindOfClass) << "gives the reference back";
    circle = any.get();
    EXPECT_EQ(circle->numRefs(), 2);
    const OdSmartPtr<Circle>& same = circle;
    circle = same;
    EXPECT_EQ(circle->numRefs(), 2);
    const OdSmartPtr<Shape> shape = std::move(circle);
    EXPECT_TRUE(circle.isNull()); // what was moved from is empty. NOLINT(bugprone-use-after-move)
    any.release();
    EXPECT_EQ(shape->numRefs(), 1);
}

TEST_F(RuntimeClasses, InheritProtocolExtensions)
{
    OdStaticRxObject<FixedMeasurer> general(1);
    OdStaticRxObject<FixedMeasurer> special(2);
    const OdSmartPtr<Circle> circle = Circle::createObject();
    const OdSmartPtr<Square> square = Square::createObject();
    EXPECT_TRUE(Measurer::cast(circle).isNull());
    EXPECT_THROW(circle->x(Measurer::desc()), OdError_NotThatKindOfClass);

    Shape::desc()->addX(Measurer::desc(), &general);
    EXPECT_EQ(Measurer::cast(circle)->measure(), 1);
    Circle::desc()->addX(Measurer::desc(), &special);
    EXPECT_EQ(Measurer::cast(circle)->measure(), 2);
    EXPECT_EQ(odrxQueryX<Measurer>(square)->measure(), 1);
    EXPECT_EQ(OdSmartPtr<Measurer>(OdRxObjectPtr(circle))->measure(), 2);

    EXPECT_EQ(Circle::desc()->delX(Measurer::desc()).get(), &special);
    EXPECT_TRUE(Circle::desc()->delX(Measurer::desc()).isNull()) << "the parent's is not its own";
    EXPECT_EQ(Measurer::cast(circle)->measure(), 1);
    EXPECT_EQ(Shape::desc()->addX(Measurer::desc(), &special).get(), &general);
    EXPECT_EQ(Measurer::cast(square)->measure(), 2);
    Shape::desc()->delX(Measurer::desc());
    EXPECT_TRUE(Measurer::cast(circle).isNull());
    EXPECT_EQ(support::codeOf([] { Shape::desc()->addX(nullptr, nullptr); }), eNullPtr);
}

TEST(Variant, GivesOnlyWhatItHolds)
{
    const OdRxObjectPtrArray coordinates{OdRxVariantValue(1.0), OdRxVariantValue(2.5), OdRxVariantValue(-3.0)};
    const OdRxObjectPtr kept = OdRxVariantValue(coordinates);
    const OdRxVariantPtr read(kept);
    ASSERT_EQ(read->varType(), OdVariant::kArray | OdVariant::kRxObjectPtr);
    ASSERT_TRUE(read->isArray());
    EXPECT_EQ(OdRxVariantPtr(read->getRxObjectPtrArray()[1])->getDouble(), 2.5);
    EXPECT_EQ(support::codeOf([&] { read->getDouble(); }), eInvalidInput);
    EXPECT_EQ(support::codeOf([] { OdVariant().getString(); }), eInvalidInput);
    EXPECT_EQ(support::codeOf([] { OdVariant(OdInt32(1)).getInt64(); }), eInvalidInput);
    EXPECT_EQ(OdVariant(L"text").type(), OdVariant::kString) << "a text is no truth value";
    const OdRxVariantPtr copy(kept->clone());
    EXPECT_TRUE(copy->isEqualTo(kept));
    copy->setInt32(4);
    EXPECT_FALSE(copy->isEqualTo(kept));
    EXPECT_THROW(copy->copyFrom(odrxClassDictionary()), OdError_NotThatKindOfClass);
    EXPECT_EQ(copy->getInt32(), 4);
}

} // namespace
