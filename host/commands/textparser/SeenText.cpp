// What a reader sees of a text entity.
#include "commands/textparser/SeenText.h"

#include <string>
#include <string_view>

#include "DbEntity.h"
#include "Gi/GiShapedText.h"
#include "Gi/GiSubEntityTraitsData.h"
#include "Gi/GiWorldDraw.h"
#include "StaticRxObject.h"

namespace textparser
{

namespace
{

// Catches texts; all other shapes pass.
class TextCatcher : public OdGiGeometry
{
public:
    SeenText seen;

    void text(const OdGePoint3d&, const OdGeVector3d&, const OdGeVector3d& direction, const OdChar* message,
              OdInt32 length, bool raw, const OdGiTextStyle* style) override
    {
        seen.characters += visible(message, length, raw, style);
        seen.direction = direction;
    }

    void text(const OdGePoint3d&, const OdGeVector3d&, const OdGeVector3d& direction, double, double, double,
              const OdString& message) override
    {
        seen.characters += message;
        seen.direction = direction;
    }

    OdGeMatrix3d getModelToWorldTransform() const override { return OdGeMatrix3d::kIdentity; }
    void pushModelTransform(const OdGeMatrix3d&) override {}
    void popModelTransform() override {}
    void circle(const OdGePoint3d&, double, const OdGeVector3d&) override {}
    void circularArc(const OdGePoint3d&, double, const OdGeVector3d&, const OdGeVector3d&, double, OdGiArcType) override
    {
    }
    void ellipArc(const OdGePoint3d&, const OdGeVector3d&, const OdGeVector3d&, double, double) override {}
    void polyline(OdInt32, const OdGePoint3d*, const OdGeVector3d*) override {}
    void polygon(OdInt32, const OdGePoint3d*) override {}
    void xline(const OdGePoint3d&, const OdGePoint3d&) override {}
    void ray(const OdGePoint3d&, const OdGePoint3d&) override {}
    void draw(const OdGiDrawable*) override {}

private:
    // Only a text with codes in it has to be set in its font to know what is seen of it.
    static OdString visible(const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* style)
    {
        const std::wstring_view characters(message, static_cast<std::size_t>(length));
        if (raw || characters.find_first_of(L"%\\") == std::wstring_view::npos)
            return OdString(characters);
        return OdString(odgiShapeText(style ? *style : OdGiTextStyle(), message, length, raw).text);
    }
};

// Brings the catcher to an entity.
class CatchingDraw : public OdGiWorldDraw
{
public:
    OdGiGeometry& geometry() const override { return m_catcher; }
    OdGiSubEntityTraits& subEntityTraits() const override { return m_traits; }
    OdGiRegenType regenType() const override { return kOdGiForExtents; }
    bool regenAbort() const override { return false; }
    double deviation() const override { return 0.0; }

    const SeenText& seen() const { return m_catcher.seen; }

private:
    mutable OdStaticRxObject<TextCatcher> m_catcher;
    mutable OdStaticRxObject<OdGiSubEntityTraitsToData> m_traits;
};

bool isBlank(wchar_t character)
{
    return character <= L' ' || character == 0xA0;
}

// True for words with single blanks between them already.
bool isJoined(std::wstring_view text)
{
    bool isBehindBlank = true;
    for (const wchar_t character : text)
    {
        if (isBlank(character) && (isBehindBlank || character != L' '))
            return false;
        isBehindBlank = isBlank(character);
    }
    return text.empty() || !isBehindBlank;
}

} // namespace

SeenText seenTextOf(const OdDbEntity& entity)
{
    OdStaticRxObject<CatchingDraw> draw;
    entity.worldDraw(&draw);
    return draw.seen();
}

OdString joinWords(const OdString& text)
{
    if (isJoined(text.view()))
        return text;
    std::wstring joined;
    joined.reserve(static_cast<std::size_t>(text.getLength()));
    bool isBetweenWords = false;
    for (const wchar_t character : text.view())
    {
        if (isBlank(character))
        {
            isBetweenWords = !joined.empty();
            continue;
        }
        if (isBetweenWords)
            joined += L' ';
        isBetweenWords = false;
        joined += character;
    }
    return OdString(joined);
}

} // namespace textparser
