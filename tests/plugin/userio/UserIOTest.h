// What the tests of the user IO share: a host that answers with texts and points, and a user IO that shows its insides.
#pragma once

#include <limits>
#include <optional>
#include <variant>

#include "UserIO.h"
#include "support/PluginTest.h"

namespace plugintest
{

/// An answer: a text, a point picked on the screen, or an error that the device raises.
using Answer = std::variant<OdString, OdGePoint3d, OdResult>;

inline Answer typed(const OdChar* text)
{
    return OdString(text);
}

class AnsweringHost : public CCommandHandlerCallback
{
public:
    OdString getString(const OdString& prompt, int options, OdEdStringTracker*) override
    {
        const Answer answer = next(prompt, options);
        return std::get<OdString>(answer);
    }
    OdGePoint3d getPoint(const OdString& prompt, int options, OdEdPointTracker* tracker) override
    {
        lastTracker = tracker;
        const Answer answer = next(prompt, options);
        if (const OdGePoint3d* point = std::get_if<OdGePoint3d>(&answer))
        {
            if (tracker)
                tracker->setValue(*point);
            return *point;
        }
        if (const OdResult* code = std::get_if<OdResult>(&answer))
            throw OdError(*code);
        throw OdEdOtherInput(std::get<OdString>(answer));
    }
    void putString(const OdString& text) override { shown.push_back("text " + odStringToUtf8(text)); }
    void putError(const OdString& text) override { shown.push_back(odStringToUtf8(text)); }
    OdUInt32 getKeyState() override
    {
        ++keyQuestions;
        return keys;
    }

    std::deque<Answer> answers;
    std::vector<std::string> prompts, shown;
    std::vector<int> options;
    OdEdPointTrackerPtr lastTracker;
    OdUInt32 keys = 0;
    int keyQuestions = 0;

private:
    Answer next(const OdString& prompt, int givenOptions)
    {
        prompts.push_back(odStringToUtf8(prompt));
        options.push_back(givenOptions);
        if (answers.empty())
            throw OdEdCancel();
        Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

class OpenUserIO : public CUserIO
{
public:
    using CUserIO::baseFormatter;
    using CUserIO::GetNextStringToken;
    using CUserIO::getPointOrReal;
    using CUserIO::Init;
};

/// Takes the numbers that it is told.
class NumberTracker : public OdEdRealTracker
{
public:
    void setValue(double value) override { values.push_back(value); }

    std::vector<double> values;
};

class UserIOTest : public PluginTest
{
protected:
    UserIOTest()
        : answering(OdRxObjectImpl<AnsweringHost>::createObject()),
          handler(CCommandHandler::createObject(L"X", db, answering)), io(OdRxObjectImpl<OpenUserIO>::createObject())
    {
        io->Init(handler);
    }

    void ask(std::deque<Answer> answers)
    {
        answering->answers = std::move(answers);
        answering->prompts.clear();
        answering->shown.clear();
        answering->options.clear();
    }
    void set(const OdChar* name, const OdResBufPtr& value) { db->setSysVar(name, value); }

    /// What work gives, as a text, or how it ended otherwise.
    template<class Work>
    static std::string outcomeOf(Work work)
    {
        try
        {
            return work();
        }
        catch (const OdEdKeyword& keyword)
        {
            return "keyword " + std::to_string(keyword.keywordIndex()) + " " + odStringToUtf8(keyword.keyword());
        }
        catch (const OdEdEmptyInput&)
        {
            return "empty";
        }
        catch (const OdEdOtherInput& other)
        {
            return "other " + odStringToUtf8(other.string());
        }
        catch (const OdEdCancel&)
        {
            return "cancel";
        }
        catch (const CUserIO::RealInput& input)
        {
            return "number " + textOf(input.value);
        }
        catch (const OdError& error)
        {
            return "error " + std::to_string(error.code());
        }
    }
    static std::string textOf(double value)
    {
        char text[40];
        std::snprintf(text, sizeof text, "%.10g", value);
        return text;
    }
    static std::string textOf(const OdGePoint3d& point)
    {
        return textOf(point.x) + " " + textOf(point.y) + " " + textOf(point.z);
    }

    OdSmartPtr<AnsweringHost> answering;
    CCommandHandlerPtr handler;
    OdSmartPtr<OpenUserIO> io;
};

inline constexpr int kThrowOther = static_cast<int>(OdEd::kInpThrowOther);
inline constexpr int kThrowEmpty = static_cast<int>(OdEd::kInpThrowEmpty);

} // namespace plugintest
