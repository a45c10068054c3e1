// A person at a terminal: a line editor with history and completion, in which Escape and Ctrl-C give up the line.
#pragma once

#include <clocale>

#include <histedit.h>

#include "cli/console/LineSource.h"

namespace cli
{

// There is one terminal, so there may be one object of this class.
class Terminal : public LineSource
{
public:
    // Throws std::runtime_error when the terminal cannot be used.
    Terminal();
    ~Terminal() override;
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    Input read(const Question& question, std::string& text) override;
    bool isPerson() const override { return true; }
    bool isInterrupted() const override;
    void forgetInterrupt() override;

private:
    static Terminal& of(EditLine* editor);
    static char* promptOf(EditLine* editor);
    static int readCharacter(EditLine* editor, wchar_t* character);
    static unsigned char giveUp(EditLine* editor, int key);
    static unsigned char completeWord(EditLine* editor, int key);

    void keep(const char* line);
    void list(const std::vector<std::string>& words) const;

    EditLine* m_editor = nullptr;
    History* m_history = nullptr;
    HistEvent m_event{};
    Question m_question;
    bool m_hasGivenUp = false;
};

} // namespace cli
