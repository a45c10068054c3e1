// Reads image files through the raster services and keeps their definitions.
#include "annotations/AnnotationPictures.h"

#include "DbDictionary.h"
#include "DbRasterVariables.h"
#include "DynamicLinker.h"
#include "annotations/FreeName.h"

namespace Annotation
{

namespace
{

constexpr const OdChar* kDefinitionName = L"AnnotationImage";
constexpr double kMillimetersInInch = 25.4;

std::wstring Text(const OdString& strText)
{
    return std::wstring(strText.view());
}

OdString AttachedFile(const AnnotationProperties& properties)
{
    return properties.effectiveImageFileName.isEmpty() ? properties.originalImagePath
                                                       : properties.effectiveImageFileName;
}

OdString PathOf(const OdString& strFile, const OdDbDatabase& db)
{
    const OdString strDrawing = db.getFilename();
    const bool bRelative = strFile[0] != L'/';
    return bRelative ? strDrawing.left(strDrawing.reverseFind(L'/') + 1) + strFile : strFile;
}

OdRxRasterServicesPtr LoadServices()
{
    return OdRxRasterServices::cast(odrxDynamicLinker()->loadApp(RX_RASTER_SERVICES_APPNAME, false));
}

bool Shows(const OdDbRasterImageDef& definition, const Picture& picture)
{
    return definition.sourceFileName() == picture.strFile && definition.size() == picture.pixels;
}

} // namespace

Picture CPictures::Read(const OdString& strFile)
{
    if (!m_pServices)
        m_pServices = LoadServices();
    const OdGiRasterImagePtr pImage = m_pServices->loadRasterImage(PathOf(strFile, m_db));
    Picture picture{strFile, OdGeVector2d(pImage->pixelWidth(), pImage->pixelHeight()), OdGeVector2d()};
    double x = 0.0, y = 0.0;
    if (pImage->defaultResolution(x, y) == OdGiRasterImage::kInch)
        picture.millimeters = OdGeVector2d(kMillimetersInInch / x, kMillimetersInInch / y);
    return picture;
}

const Picture& CPictures::Find(const AnnotationProperties& properties)
{
    const OdString strFile = AttachedFile(properties);
    const auto found = m_pictures.find(Text(strFile));
    return found != m_pictures.end() ? found->second : m_pictures[Text(strFile)] = Read(strFile);
}

// ---- Definitions
// -----------------------------------------------------------------------------------------------------

/// Those that the drawing had before the request.
void CPictures::FindDefinitions()
{
    m_bDefinitionsKnown = true;
    const OdDbDictionaryPtr pDictionary = OdDbDictionary::cast(OdDbRasterImageDef::imageDictionary(&m_db).openObject());
    if (!pDictionary)
        return;
    for (OdDbDictionaryIteratorPtr pEntry = pDictionary->newIterator(); !pEntry->done(); pEntry->next())
    {
        const OdDbRasterImageDefPtr pDefinition = OdDbRasterImageDef::cast(pEntry->getObject());
        if (pDefinition && pEntry->name().find(kDefinitionName) == 0)
            m_definitions[Text(pDefinition->sourceFileName())] = pDefinition->objectId();
    }
}

OdDbObjectId CPictures::Definition(const Picture& picture)
{
    if (!m_bDefinitionsKnown)
        FindDefinitions();
    OdDbObjectId& idDefinition = m_definitions[Text(picture.strFile)];
    const OdDbRasterImageDefPtr pKnown = OdDbRasterImageDef::cast(idDefinition.openObject());
    if (!pKnown || !Shows(*pKnown, picture))
        idDefinition = AddDefinition(picture);
    return idDefinition;
}

OdDbObjectId CPictures::AddDefinition(const Picture& picture)
{
    OdDbRasterVariables::openRasterVariables(&m_db);
    const OdDbDictionaryPtr pDictionary =
        OdDbRasterImageDef::createImageDictionary(&m_db).safeOpenObject(OdDb::kForWrite);
    const OdDbRasterImageDefPtr pDefinition = OdDbRasterImageDef::createObject();
    pDefinition->setSourceFileName(picture.strFile);
    pDefinition->setImageSize(picture.pixels);
    if (picture.millimeters.x > 0.0)
    {
        pDefinition->setResolutionMMPerPixel(picture.millimeters);
        pDefinition->setResolutionUnits(OdDbRasterImageDef::kInch);
    }
    pDefinition->setLoaded(true);
    const FreeName free = FindFreeName(kDefinitionName, m_iLastNumber,
                                       [&](const OdString& strName) { return pDictionary->has(strName); });
    m_iLastNumber = free.iNumber;
    const OdDbObjectId id = pDictionary->setAt(free.strName, pDefinition);
    pDictionary->downgradeOpen();
    return id;
}

void CPictures::EraseUnused()
{
    for (const OdDbObjectId& id : m_released)
    {
        const OdDbRasterImageDefPtr pDefinition = OdDbRasterImageDef::cast(id.openObject());
        if (!pDefinition || pDefinition->entityCount() > 0)
            continue;
        pDefinition->upgradeOpen();
        pDefinition->erase(true);
    }
    m_released.clear();
}

} // namespace Annotation
