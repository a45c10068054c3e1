// The text of a stamp: how it looks, and where in the box it stands.
#pragma once

#include <map>
#include <tuple>

#include "DbMText.h"
#include "annotations/AnnotationProperties.h"

namespace Annotation
{

/** How far a line of text reaches above and below the place of its MTEXT. */
struct TextReach
{
    double fCapital;              ///< top of a capital letter by itself
    double fTop;                  ///< of the line
    double fBottom;               ///< of the line
    OdDb::TextVertMode eVertical; ///< where that place is in the text
    double Height() const { return fTop - fBottom; }
};

/** A CTextMeasure knows how far the letters of fonts reach. Each font is measured once in each size and place. */
class CTextMeasure
{
public:
    /** The reach of a line with a capital letter, and with letters that go below the base line when the record's text
       has such. The entity has the looks of the text; its contents and place are changed. */
    TextReach Measure(const AnnotationProperties& properties, OdDbMText& text);

private:
    using Key = std::tuple<std::wstring, double, int, bool>;
    std::map<Key, TextReach> m_known;
};

/** Makes the entity the text of the record, with its place relative to the centre of the box. A record whose box takes
    the size of its text is given that size. */
void FillText(AnnotationProperties& properties, OdDbMText& text, OdDbObjectId idTextStyle, CTextMeasure& measure);

/** The distance between border and content: nothing shows it where there is neither border, background nor image. */
double EffectivePadding(const AnnotationProperties& properties);

/** What is left of a length of the box for its content. */
double ContentLength(double fLength, double fMargin);

} // namespace Annotation
