// Colours and transparency as drawings know them.
#pragma once

#include "OdPlatform.h"
#include "OdResult.h"
#include "OdString.h"

using ODCOLORREF = OdUInt32;

/** An OdCmColorBase is a colour of any kind: by layer, by block, one of 255 numbered colours, or red, green and blue.
 */
class OdCmColorBase
{
public:
    /** How the colour is said. */
    enum ColorMethod : int
    {
        kByLayer = 0xC0,
        kByBlock = 0xC1,
        kByColor = 0xC2, ///< by red, green and blue
        kByACI = 0xC3,   ///< by number, 1 to 255
        kByPen = 0xC4,
        kForeground = 0xC5,
        kLayerOff = 0xC6,
        kLayerFrozen = 0xC7,
        kNone = 0xC8
    };

    virtual ~OdCmColorBase() = default;

    virtual ColorMethod colorMethod() const = 0;
    virtual void setColorMethod(ColorMethod method) = 0;
    virtual bool isByColor() const = 0;
    virtual bool isByLayer() const = 0;
    virtual bool isByBlock() const = 0;
    virtual bool isByACI() const = 0;
    virtual bool isForeground() const = 0;
    virtual bool isNone() const = 0;

    /** Method and value in one number: the method in the highest byte. */
    virtual OdUInt32 color() const = 0;
    /** Throws OdError (eInvalidInput), with the colour unchanged, for a method that there is not. */
    virtual void setColor(OdUInt32 color) = 0;

    /** Makes the colour one of red, green and blue. */
    virtual void setRGB(OdUInt8 red, OdUInt8 green, OdUInt8 blue) = 0;
    virtual void setRed(OdUInt8 red) = 0;
    virtual void setGreen(OdUInt8 green) = 0;
    virtual void setBlue(OdUInt8 blue) = 0;
    /** Of a numbered colour: what its number stands for; 0 by layer and by block. */
    virtual OdUInt8 red() const = 0;
    virtual OdUInt8 green() const = 0;
    virtual OdUInt8 blue() const = 0;

    /** 0 by block, 256 by layer, 257 for none, else a number; of a colour by red, green and blue the nearest one. */
    virtual OdUInt16 colorIndex() const = 0;
    /** Throws OdError (eInvalidInput), with the colour unchanged, for a number above 257. */
    virtual void setColorIndex(OdUInt16 colorIndex) = 0;

    /** The name in a colour book, empty when there is none. */
    virtual OdString colorName() const = 0;
    virtual OdString bookName() const = 0;
    virtual bool setNames(const OdString& colorName, const OdString& bookName = OdString()) = 0;
};

/** An OdCmEntityColor is a colour in four bytes. It is a plain value. */
class OdCmEntityColor
{
public:
    using ColorMethod = OdCmColorBase::ColorMethod;
    static constexpr ColorMethod kByLayer = OdCmColorBase::kByLayer;
    static constexpr ColorMethod kByBlock = OdCmColorBase::kByBlock;
    static constexpr ColorMethod kByColor = OdCmColorBase::kByColor;
    static constexpr ColorMethod kByACI = OdCmColorBase::kByACI;
    static constexpr ColorMethod kByPen = OdCmColorBase::kByPen;
    static constexpr ColorMethod kForeground = OdCmColorBase::kForeground;
    static constexpr ColorMethod kLayerOff = OdCmColorBase::kLayerOff;
    static constexpr ColorMethod kLayerFrozen = OdCmColorBase::kLayerFrozen;
    static constexpr ColorMethod kNone = OdCmColorBase::kNone;

    /** Numbers of colours that have a meaning of their own. */
    enum ACIcolorMethod : int
    {
        kACIbyBlock = 0,
        kACIRed = 1,
        kACIYellow = 2,
        kACIGreen = 3,
        kACICyan = 4,
        kACIBlue = 5,
        kACIMagenta = 6,
        kACIforeground = 7,
        kACIstandard = 7,
        kACImaximum = 255,
        kACIbyLayer = 256,
        kACInone = 257
    };

    constexpr OdCmEntityColor() = default;
    constexpr OdCmEntityColor(ColorMethod method) : m_color(OdUInt32(method) << 24) {}
    constexpr OdCmEntityColor(OdUInt8 red, OdUInt8 green, OdUInt8 blue) { setRGB(red, green, blue); }

    constexpr ColorMethod colorMethod() const { return static_cast<ColorMethod>(m_color >> 24); }
    constexpr void setColorMethod(ColorMethod method) { m_color = (OdUInt32(method) << 24) | (m_color & 0xFFFFFF); }

    /** Method, red, green and blue (or the number) from the highest byte to the lowest. */
    constexpr OdUInt32 color() const { return m_color; }
    void setColor(OdUInt32 color);

    constexpr void setRGB(OdUInt8 red, OdUInt8 green, OdUInt8 blue)
    {
        m_color = (OdUInt32(kByColor) << 24) | (OdUInt32(red) << 16) | (OdUInt32(green) << 8) | blue;
    }
    void setRed(OdUInt8 red) { setRGB(red, green(), blue()); }
    void setGreen(OdUInt8 green) { setRGB(red(), green, blue()); }
    void setBlue(OdUInt8 blue) { setRGB(red(), green(), blue); }
    OdUInt8 red() const { return static_cast<OdUInt8>(rgb() >> 16); }
    OdUInt8 green() const { return static_cast<OdUInt8>(rgb() >> 8); }
    OdUInt8 blue() const { return static_cast<OdUInt8>(rgb()); }
    /** Red, green and blue in one number, as DXF group 420 has it. */
    OdUInt32 rgb() const;

    /** As OdCmColorBase::colorIndex and setColorIndex. */
    OdUInt16 colorIndex() const;
    void setColorIndex(OdUInt16 colorIndex);

    constexpr bool isByColor() const { return colorMethod() == kByColor; }
    constexpr bool isByLayer() const { return colorMethod() == kByLayer; }
    constexpr bool isByBlock() const { return colorMethod() == kByBlock; }
    constexpr bool isByACI() const { return colorMethod() == kByACI; }
    bool isForeground() const;
    constexpr bool isNone() const { return colorMethod() == kNone; }

    constexpr bool operator==(const OdCmEntityColor& other) const { return m_color == other.m_color; }

    /** Red, green and blue of a numbered colour, as in rgb(); 0 for the number 0. */
    static OdUInt32 lookUpRGB(OdUInt8 colorIndex);
    /** The number (1 to 255) of the colour nearest to red, green and blue; of two that are as near, the lower one. */
    static OdUInt8 lookUpACI(OdUInt8 red, OdUInt8 green, OdUInt8 blue);

private:
    OdUInt32 m_color = OdUInt32(kByLayer) << 24;
};

/** An OdCmColor is a colour that may also have a name in a colour book. It is a plain value; a new one is by layer. */
class OdCmColor : public OdCmColorBase
{
public:
    OdCmColor() = default;
    OdCmColor(ColorMethod method) : m_color(method) {}
    OdCmColor(const OdCmEntityColor& color) : m_color(color) {}
    explicit OdCmColor(const OdCmColorBase& source);
    OdCmColor(const OdCmColor&) = default;
    OdCmColor& operator=(const OdCmColor&) = default;
    OdCmColor& operator=(const OdCmColorBase& source);

    const OdCmEntityColor& entityColor() const { return m_color; }

    ColorMethod colorMethod() const override { return m_color.colorMethod(); }
    void setColorMethod(ColorMethod method) override { m_color.setColorMethod(method); }
    bool isByColor() const override { return m_color.isByColor(); }
    bool isByLayer() const override { return m_color.isByLayer(); }
    bool isByBlock() const override { return m_color.isByBlock(); }
    bool isByACI() const override { return m_color.isByACI(); }
    bool isForeground() const override { return m_color.isForeground(); }
    bool isNone() const override { return m_color.isNone(); }
    OdUInt32 color() const override { return m_color.color(); }
    void setColor(OdUInt32 color) override { m_color.setColor(color); }
    void setRGB(OdUInt8 red, OdUInt8 green, OdUInt8 blue) override { m_color.setRGB(red, green, blue); }
    void setRed(OdUInt8 red) override { m_color.setRed(red); }
    void setGreen(OdUInt8 green) override { m_color.setGreen(green); }
    void setBlue(OdUInt8 blue) override { m_color.setBlue(blue); }
    OdUInt8 red() const override { return m_color.red(); }
    OdUInt8 green() const override { return m_color.green(); }
    OdUInt8 blue() const override { return m_color.blue(); }
    OdUInt16 colorIndex() const override { return m_color.colorIndex(); }
    void setColorIndex(OdUInt16 colorIndex) override { m_color.setColorIndex(colorIndex); }
    OdString colorName() const override { return m_colorName; }
    OdString bookName() const override { return m_bookName; }
    /** Always takes the names. Returns true. */
    bool setNames(const OdString& colorName, const OdString& bookName = OdString()) override;

    bool operator==(const OdCmColor& other) const;

private:
    OdCmEntityColor m_color;
    OdString m_colorName;
    OdString m_bookName;
};

/** An OdCmTransparency says how much of what is behind an object shows through it. It is a plain value; a new one is by
    layer. */
class OdCmTransparency
{
public:
    enum TransparencyMethod : int
    {
        kByLayer = 0,
        kByBlock = 1,
        kByAlpha = 2,
        kErrorValue = 3
    };

    constexpr OdCmTransparency() = default;
    constexpr explicit OdCmTransparency(TransparencyMethod method) : m_value(OdUInt32(method) << 24) {}
    constexpr explicit OdCmTransparency(OdUInt8 alpha) { setAlpha(alpha); }

    constexpr TransparencyMethod method() const { return static_cast<TransparencyMethod>(m_value >> 24); }
    constexpr void setMethod(TransparencyMethod method) { m_value = OdUInt32(method) << 24; }
    /** 0 is invisible, 255 hides what is behind. */
    constexpr OdUInt8 alpha() const { return method() == kByAlpha ? static_cast<OdUInt8>(m_value) : 255; }
    constexpr void setAlpha(OdUInt8 alpha) { m_value = (OdUInt32(kByAlpha) << 24) | alpha; }
    constexpr bool isByAlpha() const { return method() == kByAlpha; }
    constexpr bool isByBlock() const { return method() == kByBlock; }
    constexpr bool isByLayer() const { return method() == kByLayer; }
    constexpr bool isInvalid() const { return method() == kErrorValue; }

    /** The value as DXF group 440 has it. A method that there is not becomes kErrorValue. */
    constexpr OdUInt32 serializeOut() const { return m_value; }
    constexpr void serializeIn(OdUInt32 value)
    {
        m_value = (value >> 24) <= kByAlpha ? value : OdUInt32(kErrorValue) << 24;
    }

    constexpr bool operator==(const OdCmTransparency& other) const { return m_value == other.m_value; }

private:
    OdUInt32 m_value = 0;
};
