// The user at a console: sees what commands say as they say it, and answers their questions with lines.
#pragma once

#include "cli/console/LineSource.h"
#include "session/RunCommand.h"

namespace cli
{

class ConsoleUser : public session::CommandUser
{
public:
    // The lines must outlive the user.
    void use(LineSource& lines) { m_lines = &lines; }

    OdString getString(const OdString& prompt, int options, OdEdStringTracker* tracker) override;
    OdGePoint3d getPoint(const OdString& prompt, int options, OdEdPointTracker* tracker) override;
    void putString(const OdString& text) override;
    void putError(const OdString& text) override;

private:
    OdString ask(const OdString& prompt, const std::vector<std::string>& keywords);

    LineSource* m_lines = nullptr;
};

} // namespace cli
