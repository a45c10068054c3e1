// The user of one request.
#include "session/UserAnswers.h"

#include <algorithm>
#include <string>

#include "Ed/EdException.h"
#include "session/RequestReader.h"
#include "session/WideText.h"

namespace session
{

namespace
{

bool isPoint(const WideValue& answer)
{
    return answer.IsArray() && (answer.Size() == 2 || answer.Size() == 3) &&
           std::all_of(answer.Begin(), answer.End(), [](const WideValue& part) { return part.IsNumber(); });
}

OdGePoint3d pointOf(const WideValue& answer)
{
    return OdGePoint3d(answer[0].GetDouble(), answer[1].GetDouble(), answer.Size() == 3 ? answer[2].GetDouble() : 0.0);
}

OdString textOf(const WideValue& answer)
{
    return joinSurrogates(answer.GetString(), answer.GetStringLength());
}

// What a console shows of a point that is picked where a text is asked for.
OdString typedPoint(const OdGePoint3d& point)
{
    OdString text;
    return text.format(L"%.17g,%.17g,%.17g", point.x, point.y, point.z);
}

} // namespace

void UserAnswers::begin(const WideValue* input)
{
    m_input = input;
    m_next = 0;
    forgetMessage();
    m_output.clear();
    if (input == nullptr)
        return;
    for (rapidjson::SizeType i = 0; i < input->Size(); ++i)
        if (const WideValue& answer = (*input)[i]; !answer.IsNull() && !answer.IsString() && !isPoint(answer))
            throw RequestError("element " + std::to_string(i + 1) +
                               " of \"input\" is neither a text nor a point nor null");
}

const WideValue& UserAnswers::nextAnswer(const OdString& prompt)
{
    m_output.push_back({OutputKind::kPrompt, prompt});
    if (m_input == nullptr || m_next >= m_input->Size())
        throw OdEdCancel();
    const WideValue& answer = (*m_input)[m_next++];
    if (answer.IsNull())
        throw OdEdCancel();
    return answer;
}

OdString UserAnswers::getString(const OdString& prompt, int, OdEdStringTracker*)
{
    const WideValue& answer = nextAnswer(prompt);
    return answer.IsString() ? textOf(answer) : typedPoint(pointOf(answer));
}

OdGePoint3d UserAnswers::getPoint(const OdString& prompt, int, OdEdPointTracker*)
{
    const WideValue& answer = nextAnswer(prompt);
    if (answer.IsString())
        throw OdEdOtherInput(textOf(answer));
    return pointOf(answer);
}

void UserAnswers::putString(const OdString& text)
{
    m_output.push_back({OutputKind::kText, text});
}

void UserAnswers::putError(const OdString& text)
{
    m_output.push_back({OutputKind::kError, text});
}

} // namespace session
