// Ctrl-C while a command works.
#pragma once

#include "Ed/EdCommandStackReactor.h"
#include "StaticRxObject.h"
#include "cli/console/LineSource.h"

namespace cli
{

// While there is one, no command starts that belongs to a run during which the user has pressed Ctrl-C: it is cancelled
// like one that was given up at a question, and so is the run. A command that works already is not disturbed before it
// runs another one.
class InterruptReactor : public OdStaticRxObject<OdEdCommandStackReactor>
{
public:
    // The lines must outlive it.
    explicit InterruptReactor(const LineSource& lines);
    ~InterruptReactor() override;
    InterruptReactor(const InterruptReactor&) = delete;
    InterruptReactor& operator=(const InterruptReactor&) = delete;

    void commandWillStart(OdEdCommand* command, OdEdCommandContext* context) override;

private:
    const LineSource& m_lines;
};

} // namespace cli
