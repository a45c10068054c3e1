// Attacks chains: very long and very deep ones, values of the wrong type, links that are broken behind their back.
#include "ResBuf.h"

#include <gtest/gtest.h>

#include <limits>

#include "OdaCommon.h"
#include "RxVariant.h"
#include "support/ErrorCode.h"

namespace
{

constexpr int kMany = 1000000;

OdResBufPtr text(const OdChar* value)
{
    return OdResBuf::newRb(OdResBuf::kRtString, value);
}

OdString textsOf(const OdResBufPtr& chain)
{
    OdString all;
    for (OdResBufPtr at = chain; !at.isNull(); at = at->next())
        all += at->getString();
    return all;
}

TEST(ResBuf, ChainsOfAnyLengthAreMadeCopiedAndReleased)
{
    OdResBufPtr head = OdResBuf::newRb(OdResBuf::kRtInt32, OdInt32(0));
    for (int i = 1; i < kMany; ++i)
        head->last()->setNext(OdResBuf::newRb(OdResBuf::kRtInt32, OdInt32(i)));
    EXPECT_EQ(head->last()->getInt32(), kMany - 1);
    const OdResBufPtr copy = head->clone();
    EXPECT_EQ(copy->numElements(), static_cast<OdUInt32>(kMany));
    head.release();
    EXPECT_EQ(copy->last()->getInt32(), kMany - 1);
}

TEST(ResBuf, ChainsOfAnyDepthAreCopiedAndReleased)
{
    OdResBufPtr deep = text(L"bottom");
    for (int i = 0; i < kMany; ++i)
    {
        const OdResBufPtr around = OdResBuf::newRb(OdResBuf::kRtResBuf, deep);
        if (i % 3 == 0)
            around->setNext(text(L"beside"));
        deep = around;
    }
    OdResBufPtr copy = deep->clone();
    deep.release();
    for (int i = 0; i < kMany; ++i)
    {
        const OdResBufPtr inner = copy->getResBuf();
        copy = inner;
    }
    EXPECT_TRUE(copy->getString() == L"bottom");
}

TEST(ResBuf, APartHeldElsewhereOutlivesItsChain)
{
    OdResBufPtr head = text(L"a");
    head->last()->setNext(text(L"b"));
    head->last()->setNext(text(L"c"));
    const OdResBufPtr middle = head->next();
    head.release();
    EXPECT_TRUE(textsOf(middle) == L"bc");
}

TEST(ResBuf, LastIsRightAfterLinksWereBroken)
{
    const OdResBufPtr head = text(L"a");
    head->last()->setNext(text(L"b"));
    head->last()->setNext(text(L"c"));
    head->last()->setNext(text(L"d"));
    EXPECT_TRUE(head->last()->getString() == L"d");
    head->next()->setNext(nullptr); // c and d are gone
    EXPECT_TRUE(head->last()->getString() == L"b");
    head->setNext(text(L"x"));
    EXPECT_TRUE(head->last()->getString() == L"x");
    const OdResBufPtr part = text(L"1");
    part->last()->setNext(text(L"2"));
    EXPECT_EQ(head->insert(part).get(), part.get());
    EXPECT_TRUE(textsOf(head) == L"a12x");
    EXPECT_TRUE(part->last()->getString() == L"x");
    EXPECT_EQ(support::codeOf([&] { head->setNext(head); }), eInvalidInput);
    EXPECT_EQ(support::codeOf([&] { head->insert(nullptr); }), eNullPtr);
    EXPECT_EQ(support::codeOf([&] { head->setResBuf(head); }), eInvalidInput);
    EXPECT_TRUE(textsOf(head) == L"a12x");
}

TEST(ResBuf, GivesAValueOnlyInAFormThatHoldsIt)
{
    const OdRxObjectPtr object = OdRxVariantValue(1.0);
    const OdResBufPtr values[] = {
        OdResBuf::newRb(),
        OdResBuf::newRb(290, true),
        OdResBuf::newRb(70, OdInt16(7)),
        OdResBuf::newRb(90, std::numeric_limits<OdInt32>::max()),
        OdResBuf::newRb(160, std::numeric_limits<OdInt64>::min()),
        OdResBuf::newRb(40, 2.5),
        OdResBuf::newRb(1, L"text"),
        OdResBuf::newRb(10, OdGePoint2d(1, 2)),
        OdResBuf::newRb(10, OdGePoint3d(1, 2, 3)),
        OdResBuf::newRb(330, OdDbObjectId()),
        OdResBuf::newRb(5023, OdResBuf::newRb()),
        OdResBuf::newRb(62, OdCmColor(OdCmEntityColor(1, 2, 3))),
    };
    const struct
    {
        const char* form;
        void (*get)(const OdResBuf&);
        const char* allowed; ///< for each value: 1 given, 0 refused
    } kForms[] = {
        {"bool", [](const OdResBuf& rb) { rb.getBool(); }, "011110000000"},
        {"int8", [](const OdResBuf& rb) { rb.getInt8(); }, "011000000000"},
        {"int16", [](const OdResBuf& rb) { rb.getInt16(); }, "011000000000"},
        {"int32", [](const OdResBuf& rb) { rb.getInt32(); }, "011100000000"},
        {"int64", [](const OdResBuf& rb) { rb.getInt64(); }, "011110000000"},
        {"double", [](const OdResBuf& rb) { rb.getDouble(); }, "000001000000"},
        {"string", [](const OdResBuf& rb) { rb.getString(); }, "000000100000"},
        {"point2d", [](const OdResBuf& rb) { rb.getPoint2d(); }, "000000011000"},
        {"point3d", [](const OdResBuf& rb) { rb.getPoint3d(); }, "000000011000"},
        {"object id", [](const OdResBuf& rb) { rb.getObjectId(); }, "000000000100"},
        {"chain", [](const OdResBuf& rb) { rb.getResBuf(); }, "000000000010"},
        {"color", [](const OdResBuf& rb) { rb.getColor(); }, "000000000001"},
        {"pick set", [](const OdResBuf& rb) { rb.getPickSet(); }, "000000000000"},
        {"handle", [](const OdResBuf& rb) { rb.getHandle(); }, "000000000000"},
        {"binary", [](const OdResBuf& rb) { rb.getBinaryChunk(); }, "000000000000"},
    };
    for (const auto& form : kForms)
        for (std::size_t i = 0; i < std::size(values); ++i)
            EXPECT_EQ(support::codeOf([&] { form.get(*values[i]); }), form.allowed[i] == '1' ? eOk : eInvalidResBuf)
                << form.form << " of value " << i;
    EXPECT_EQ(values[4]->getInt64(), std::numeric_limits<OdInt64>::min());
    EXPECT_TRUE(values[7]->getPoint3d() == OdGePoint3d(1, 2, 0));
    EXPECT_EQ(values[11]->getColor().blue(), 3);
}

TEST(ResBuf, ComparesAndCopiesOneElement)
{
    const OdResBufPtr first = OdResBuf::newRb(62, OdCmColor(OdCmEntityColor(1, 2, 3)));
    const OdResBufPtr second = OdResBuf::newRb(62, OdCmColor(OdCmEntityColor(1, 2, 3)));
    first->setNext(text(L"behind"));
    EXPECT_TRUE(first->isEqualTo(second));
    second->setRestype(63);
    EXPECT_FALSE(first->isEqualTo(second));
    second->copyFrom(first);
    EXPECT_TRUE(first->isEqualTo(second) && second->next().isNull());
    const OdRxObjectPtr other = OdRxVariantValue(1.0);
    EXPECT_FALSE(first->isEqualTo(other) || first->isEqualTo(nullptr));
    EXPECT_EQ(support::codeOf([&] { first->copyFrom(other); }), eNotThatKindOfClass);
    OdResBufPtr wrong;
    EXPECT_THROW(wrong = other, OdError_NotThatKindOfClass);
}

} // namespace
