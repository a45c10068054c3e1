// A drawing that is open.
#include "session/OpenDrawing.h"

#include "commands/SelectionSets.h"

namespace session
{

OpenDrawing::OpenDrawing() : m_database(OdDbDatabase::createObject())
{
    m_database->initialize();
}

OpenDrawing::OpenDrawing(const OdString& fileName) : m_database(OdDbDatabase::createObject())
{
    m_database->readFile(fileName);
}

OpenDrawing::~OpenDrawing()
{
    while (m_database->numActiveTransactions() > 0)
        m_database->abortTransaction();
    hostcommands::forgetSelectionSets(*m_database);
}

} // namespace session
