// The user of one request: answers what commands ask with the elements of the request's "input", one for each question,
// and keeps what a user would have seen, in order. When nothing is left to answer with, the user presses Escape.
//
//   "text"          typed text, blanks included
//   [x, y]          a point picked on the screen, also with a third coordinate
//   null            the Escape key
#pragma once

#include <vector>

#include "session/Json.h"
#include "session/RunCommand.h"

namespace session
{

class UserAnswers : public CommandUser
{
public:
    // Starts a request. input is an array or null and must stay until the next request or the end. Throws RequestError
    // for an element of another form.
    void begin(const WideValue* input);

    OdString getString(const OdString& prompt, int options, OdEdStringTracker* tracker) override;
    OdGePoint3d getPoint(const OdString& prompt, int options, OdEdPointTracker* tracker) override;
    void putString(const OdString& text) override;
    void putError(const OdString& text) override;

    std::vector<Output>& output() { return m_output; }

private:
    const WideValue& nextAnswer(const OdString& prompt);

    const WideValue* m_input = nullptr;
    rapidjson::SizeType m_next = 0;
    std::vector<Output> m_output;
};

} // namespace session
