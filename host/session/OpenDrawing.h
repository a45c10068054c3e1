// A drawing that is open: read from a file or new. It ends with the object, and so does what the host keeps beside it.
// (What the plug-in keeps beside it, the plug-in removes when a drawing ends.)
#pragma once

#include <string>

#include "DbDatabase.h"

namespace session
{

class OpenDrawing
{
public:
    // A new, empty drawing.
    OpenDrawing();
    // Throws OdError with the file, the place and the fault.
    explicit OpenDrawing(const OdString& fileName);
    // Takes open transactions back.
    ~OpenDrawing();
    OpenDrawing(const OpenDrawing&) = delete;
    OpenDrawing& operator=(const OpenDrawing&) = delete;

    OdDbDatabase& database() const { return *m_database; }

    // The drawing is the last thing that the program works on. Its objects are left as they are then: the system takes
    // the program's memory back at once, where freeing object by object would take as long as opening.
    void endsWithTheProgram() { m_endsWithTheProgram = true; }

private:
    OdDbDatabasePtr m_database;
    bool m_endsWithTheProgram = false;
};

} // namespace session
