// Contexts of commands with parts missing, for tests of what commands require.
#pragma once

#include "DbCommandContext.h"
#include "DbUserIO.h"
#include "Ed/EdFunctionIO.h"

namespace plugintest
{

/// A context that has what it is given.
template<class Context>
class ContextOfParts : public Context
{
public:
    OdRxObject* baseDatabase() override { return database; }
    OdEdUserIO* userIO() override { return user; }
    OdEdFunctionIO* funcIO() override { return functionIO; }
    void setArbitraryData(const OdString&, OdRxObject*) override {}
    OdRxObjectPtr arbitraryData(const OdString&) const override { return {}; }

    OdRxObject* database = nullptr;
    OdEdUserIO* user = nullptr;
    OdEdFunctionIO* functionIO = nullptr;
};

/// One of commands on drawings.
using PartialContext = ContextOfParts<OdDbCommandContext>;

/// One of other commands.
using ContextOfNoDrawing = ContextOfParts<OdEdCommandContext>;

/// A function IO that is not the plug-in's.
class ForeignFunctionIO : public OdEdFunctionIO
{
public:
    void setParam(OdRxObject*) override {}
    OdRxObjectPtr param() override { return {}; }
    void setResult(OdRxObject*) override {}
    OdRxObjectPtr result() override { return {}; }
};

} // namespace plugintest
