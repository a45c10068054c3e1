// Refuses commands after Ctrl-C.
#include "cli/console/InterruptReactor.h"

#include "Ed/EdCommandStack.h"
#include "Ed/EdException.h"

namespace cli
{

InterruptReactor::InterruptReactor(const LineSource& lines) : m_lines(lines)
{
    odedRegCmds()->addReactor(this);
}

InterruptReactor::~InterruptReactor()
{
    if (const OdEdCommandStackPtr commands = odedRegCmds(); !commands.isNull())
        commands->removeReactor(this);
}

void InterruptReactor::commandWillStart(OdEdCommand*, OdEdCommandContext*)
{
    if (m_lines.isInterrupted())
        throw OdEdCancel();
}

} // namespace cli
