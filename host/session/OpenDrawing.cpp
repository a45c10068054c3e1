// A drawing that is open.
#include "session/OpenDrawing.h"

#include "DbHostAppServices.h"
#include "commands/SelectionSets.h"

namespace session
{

namespace
{

// They outlive all drawings that are made through them.
OdDbHostAppServices& drawingServices()
{
    static OdDbHostAppServices services;
    return services;
}

} // namespace

OpenDrawing::OpenDrawing() : m_database(drawingServices().createDatabase()) {}

OpenDrawing::OpenDrawing(const OdString& fileName) : m_database(drawingServices().createDatabase(false))
{
    m_database->readFile(fileName);
}

OpenDrawing::~OpenDrawing()
{
    while (m_database->numActiveTransactions() > 0)
        m_database->abortTransaction();
    hostcommands::forgetSelectionSets(*m_database);
    if (m_endsWithTheProgram)
        m_database.detach();
}

} // namespace session
