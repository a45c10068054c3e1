// Runs one command string on a drawing and keeps the outcome.
#pragma once

#include <optional>

#include "CommandHandlerCallback.h"
#include "DbDatabase.h"
#include "session/ResponseWriter.h"

namespace session
{

// Whom a command asks, and who hears its closing message.
class CommandUser : public CCommandHandlerCallback
{
public:
    void CommandMessage(const OdString& message) override { m_message = message; }

    const std::optional<OdString>& message() const { return m_message; }
    void forgetMessage() { m_message.reset(); }

private:
    std::optional<OdString> m_message;
};

// What a response says of an error.
Failure failureOf(const OdError& error);
Failure failureOf(const std::exception& error);

// parameters may be null: there are none then. Sets the state, the flags, the message, the result and the failure of
// the response and leaves the rest of it. Throws nothing that the run throws.
void runCommand(OdDbDatabase& database, const OdString& command, const OdResBufPtr& parameters, CommandUser& user,
                Response& response);

} // namespace session
