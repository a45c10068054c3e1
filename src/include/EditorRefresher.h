// How the editor of a drawing hears that what it shows was changed.
#pragma once

#include "DbObjectId.h"
#include "QuendZolExport.h"
#include "RxObject.h"

/** An object that a host keeps in the module's store under a drawing and the key "EDITOROBJECT" may be a
    CEditorRefresher too: it is then told of every object whose looks a command changed. */
class QUEND_ZOL_EXPORT CEditorRefresher
{
public:
    virtual ~CEditorRefresher() = default;

    /** The object, which is open for write, has other looks than before. What this throws ends the command. */
    virtual void Refresh(const OdDbObjectId& idObject) = 0;
};
