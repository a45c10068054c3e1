// Where the lines of a console come from: a person at a terminal or a file.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace cli
{

enum class Input
{
    kLine,
    kCancelled, // Escape or Ctrl-C
    kEnd        // Ctrl-D on an empty line, the end of a file
};

class LineSource
{
public:
    virtual ~LineSource() = default;

    // Shows the prompt and reads a line into text, without its line feed. completions are the words that can be
    // completed. A line that is a command is kept in the history.
    struct Question
    {
        std::string prompt;
        std::vector<std::string> completions;
        bool isCommand = false;
    };
    virtual Input read(const Question& question, std::string& text) = 0;

    // True when somebody can be asked whether he is sure.
    virtual bool isPerson() const = 0;

    // Whether the user has pressed Ctrl-C while nothing was asked, and forgetting that.
    virtual bool isInterrupted() const { return false; }
    virtual void forgetInterrupt() {}
};

// A terminal with a line editor when standard input and output are one, else the plain lines of standard input, which
// are shown behind their prompts as if they had been typed.
std::unique_ptr<LineSource> openLineSource();

} // namespace cli
