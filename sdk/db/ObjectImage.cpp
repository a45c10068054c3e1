// States of objects in bytes, through the undo filer.
#include "ObjectImage.h"

#include <exception>

#include "MemoryFilers.h"

namespace oddb
{

Groups captureImage(const OdDbObject& object)
{
    static OdSmartPtr<MemoryDwgFiler> writer; // keeps its buffer from one object to the next
    OdSmartPtr<MemoryDwgFiler> filer = std::move(writer);
    if (filer.isNull())
        filer = MemoryDwgFiler::create(OdDbFiler::kUndoFiler, nullptr);
    filer->begin(OdDbFiler::kUndoFiler, object.database());
    object.dwgOutFields(filer);
    Groups image = Groups::fromItems(filer->bytes().data(), filer->bytes().size());
    writer = std::move(filer);
    return image;
}

OdResult applyImage(OdDbObject& object, const Groups& image)
{
    OdSmartPtr<MemoryDwgFiler> filer = MemoryDwgFiler::create(OdDbFiler::kUndoFiler, object.database());
    if (image)
        filer->setBytes({image.data()->bytes(), image.byteSize()});
    try
    {
        const OdResult result = object.dwgInFields(filer);
        if (result != eOk)
            return result;
        return filer->atEnd() ? eOk : eDwgObjectImproperlyRead;
    }
    catch (const OdError& error)
    {
        return error.code();
    }
    catch (const std::exception&)
    {
        return eDwgObjectImproperlyRead;
    }
}

} // namespace oddb
