// Asks for numbers, angles, colours and files until the answer can be read.
#include <algorithm>
#include <cwchar>
#include <limits>

#include "DbDatabase.h"
#include "DbHostAppServices.h"
#include "OdError.h"
#include "UserIO.h"
#include "userio/Options.h"

namespace
{

/// What a reader asks, and what it says about an answer that it cannot read.
struct Question
{
    OdString strPrompt;
    int iOptions;
    OdString strKeywords;
    OdString strDefault;
    const OdChar* pszRefusal;
    const OdChar* pszRefusalWithKeywords;
};

// Which text is shown depends on a blank in the list, so that a list of one keyword counts as none: front ends know it
// so.
OdString RefusalOf(const Question& question)
{
    return question.strKeywords.find(L' ') >= 0 ? question.pszRefusalWithKeywords : question.pszRefusal;
}

template<class Read>
auto AskUntilRead(CUserIO& io, const Question& question, Read read)
{
    while (true)
    {
        const OdString strAnswer =
            io.getString(question.strPrompt, question.iOptions, question.strDefault, question.strKeywords);
        try
        {
            return read(strAnswer);
        }
        catch (const OdError& error)
        {
            if (error.code() != eInvalidInput)
                throw;
        }
        if (HasOption(question.iOptions, OdEd::kInpThrowOther))
            throw OdEdOtherInput(strAnswer);
        io.putError(RefusalOf(question));
    }
}

} // namespace

int CUserIO::getInt(const OdString& prompt, int options, int defaultValue, const OdString& keywords,
                    OdEdIntegerTracker*)
{
    const OdString strAnswer = getString(PromptOr(prompt, L"Enter an integer value:"), options, OdString(), keywords);
    if (strAnswer.isEmpty())
        return defaultValue;
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(
        std::clamp<long>(std::wcstol(strAnswer.c_str(), nullptr, 10), Limits::min(), Limits::max()));
}

double CUserIO::getReal(const OdString& prompt, int options, double defaultValue, const OdString& keywords,
                        OdEdRealTracker*)
{
    const Question question = {
        PromptOr(prompt, L"Enter a real value:"),         options, keywords, OdString(), L"Requires valid real value!",
        L"Requires valid real value or optional keyword!"};
    return AskUntilRead(*this, question,
                        [&](const OdString& strAnswer)
                        { return strAnswer.isEmpty() ? defaultValue : baseFormatter().unformatLinear(strAnswer); });
}

double CUserIO::getAngle(const OdString& prompt, int options, double defaultValue, const OdString& keywords,
                         OdEdRealTracker*)
{
    const bool bFromBase = HasOption(options, OdEd::kGanFromAngBase) && Database();
    const double dBase = bFromBase ? Database()->getANGBASE() : 0.0;
    const Question question = {PromptOr(prompt, L"Enter an angle:"),
                               options,
                               keywords,
                               OdString(),
                               L"Invalid numeric angle value!",
                               L"Requires valid numeric angle or optional keyword!"};
    return AskUntilRead(*this, question,
                        [&](const OdString& strAnswer) {
                            return strAnswer.isEmpty() ? defaultValue
                                                       : baseFormatter().unformatAngle(strAnswer) - dBase;
                        });
}

OdCmColorBasePtr CUserIO::getCmColor(const OdString& prompt, int options, const OdCmColorBase* defaultValue,
                                     const OdString& keywords, OdEdInputTracker*)
{
    const Question question = {PromptOr(prompt, L"Enter a color:"),
                               options,
                               keywords,
                               defaultValue ? baseFormatter().formatCmColor(*defaultValue) : OdString(),
                               L"Invalid color value!",
                               L"Requires valid color value or optional keyword!"};
    return AskUntilRead(*this, question,
                        [&](const OdString& strAnswer) { return baseFormatter().unformatCmColor(strAnswer); });
}

OdCmColor CUserIO::getColor(const OdString& prompt, int options, const OdCmColorBase* defaultValue,
                            const OdString& keywords, OdEdInputTracker* tracker)
{
    const OdCmColorBasePtr pColor = getCmColor(prompt, options, defaultValue, keywords, tracker);
    const auto* pDrawingColor = dynamic_cast<const OdCmColor*>(pColor.get());
    if (!pDrawingColor)
        throw OdError(eInvalidInput);
    return *pDrawingColor;
}

OdString CUserIO::getFilePath(const OdString& prompt, int options, const OdString& dialogCaption,
                              const OdString& defaultExtension, const OdString& fileName, const OdString& filter,
                              const OdString& keywords, OdEdStringTracker* tracker)
{
    const auto AskForText = [&]
    {
        return OdEdUserIO::getFilePath(prompt, options, dialogCaption, defaultExtension, fileName, filter, keywords,
                                       tracker);
    };
    OdDbHostAppServices* pServices = Database() ? Database()->appServices() : nullptr;
    if (!pServices)
        return AskForText();
    if (!pServices->getFILEDIA())
    {
        OdString strPath = AskForText();
        if (strPath != L"~")
            return strPath.trimLeft(L" ").trimRight(L" ");
    }
    constexpr int iDialogFlags = 3;
    const OdString strPath =
        pServices->fileDialog(options & iDialogFlags, dialogCaption, defaultExtension, fileName, filter);
    return strPath == L"*unsupported*" ? AskForText() : strPath;
}
