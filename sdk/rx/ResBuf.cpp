// Chains of values: linking, copying and releasing them without recursion, however long they are.
#include "ResBuf.h"

#include <limits>
#include <vector>

#include "OdError.h"

namespace
{

// Counts links that were broken anywhere: what an element remembers of its chain holds until then.
std::atomic<OdUInt64> g_linksBroken{0};

} // namespace

OdRxClass* OdResBuf::g_pDesc = nullptr;

OdRxClass* OdResBuf::isA() const
{
    return g_pDesc;
}

OdRxObjectPtr OdResBuf::pseudoConstructor()
{
    return newRb();
}

OdResBufPtr OdResBuf::createObject()
{
    return newRb();
}

void OdResBuf::rxInit(AppNameChangeFuncPtr changeAppName)
{
    odrxRegisterClass(g_pDesc, L"OdResBuf", OdRxObject::desc(), &OdResBuf::pseudoConstructor, 0, 0, 0, nullptr, nullptr,
                      changeAppName);
}

void OdResBuf::rxInit()
{
    rxInit(nullptr);
}

void OdResBuf::rxUninit()
{
    odrxUnregisterClass(g_pDesc);
}

OdResBuf::~OdResBuf()
{
    if (m_next.isNull() && !std::holds_alternative<OdResBufPtr>(m_value))
        return;
    std::vector<OdResBufPtr> nested;
    const auto takeNested = [&nested](OdResBuf& element)
    {
        if (OdResBufPtr* chain = std::get_if<OdResBufPtr>(&element.m_value); chain && !chain->isNull())
            nested.push_back(std::move(*chain));
    };
    takeNested(*this);
    for (OdResBufPtr chain = std::move(m_next);; chain = std::move(nested.back()), nested.pop_back())
    {
        while (!chain.isNull() && chain->numRefs() == 1)
        {
            takeNested(*chain);
            OdResBufPtr rest = std::move(chain->m_next);
            chain = std::move(rest);
        }
        chain.release();
        if (nested.empty())
            return;
    }
}

OdResBufPtr OdResBuf::newRb(int resType)
{
    OdResBufPtr made(new OdResBuf, kOdRxObjAttach);
    made->m_resType = resType;
    return made;
}

namespace
{

template<class Set>
OdResBufPtr makeWith(int resType, Set set)
{
    OdResBufPtr made = OdResBuf::newRb(resType);
    set(*made);
    return made;
}

} // namespace

OdResBufPtr OdResBuf::newInteger(int resType, OdInt64 value)
{
    return makeWith(resType, [value](OdResBuf& made) { made.setInt64(value); });
}

OdResBufPtr OdResBuf::newRb(int resType, bool value)
{
    return makeWith(resType, [value](OdResBuf& made) { made.setBool(value); });
}

OdResBufPtr OdResBuf::newRb(int resType, double value)
{
    return makeWith(resType, [value](OdResBuf& made) { made.setDouble(value); });
}

OdResBufPtr OdResBuf::newRb(int resType, const OdString& value)
{
    return makeWith(resType, [&value](OdResBuf& made) { made.setString(value); });
}

OdResBufPtr OdResBuf::newRb(int resType, const OdGePoint2d& value)
{
    return makeWith(resType, [&value](OdResBuf& made) { made.setPoint2d(value); });
}

OdResBufPtr OdResBuf::newRb(int resType, const OdGePoint3d& value)
{
    return makeWith(resType, [&value](OdResBuf& made) { made.setPoint3d(value); });
}

OdResBufPtr OdResBuf::newRb(int resType, const OdGeVector2d& value)
{
    return makeWith(resType, [&value](OdResBuf& made) { made.setVector2d(value); });
}

OdResBufPtr OdResBuf::newRb(int resType, const OdGeVector3d& value)
{
    return makeWith(resType, [&value](OdResBuf& made) { made.setVector3d(value); });
}

OdResBufPtr OdResBuf::newRb(int resType, const OdDbObjectId& value)
{
    return makeWith(resType, [&value](OdResBuf& made) { made.setObjectId(value); });
}

OdResBufPtr OdResBuf::newRb(int resType, const OdCmColorBase& value)
{
    return makeWith(resType, [&value](OdResBuf& made) { made.setColor(value); });
}

OdResBufPtr OdResBuf::newRb(int resType, const OdResBufPtr& value)
{
    return makeWith(resType, [&value](OdResBuf& made) { made.setResBuf(value); });
}

void OdResBuf::checkLink(const OdResBuf* element) const
{
    if (element == this)
        odThrow(eInvalidInput);
}

void OdResBuf::relink(OdResBuf* element)
{
    if (!m_next.isNull())
        g_linksBroken.fetch_add(1, std::memory_order_relaxed);
    m_next = share(element);
}

OdResBufPtr OdResBuf::setNext(OdResBuf* element)
{
    checkLink(element);
    if (m_next.get() != element)
        relink(element);
    return share(element);
}

OdResBuf* OdResBuf::findLast() const
{
    const OdUInt64 broken = g_linksBroken.load(std::memory_order_relaxed);
    const bool knows = m_knownLater && m_linksBrokenThen == broken;
    OdResBuf* at = knows ? m_knownLater : const_cast<OdResBuf*>(this);
    while (at->m_next.get())
        at = at->m_next.get();
    if (at != this)
    {
        m_knownLater = at;
        m_linksBrokenThen = broken;
    }
    return at;
}

OdResBufPtr OdResBuf::last() const
{
    return share(findLast());
}

OdResBufPtr OdResBuf::insert(OdResBuf* element)
{
    checkLink(element);
    if (!element)
        odThrow(eNullPtr);
    const OdResBufPtr behind = m_next;
    OdResBufPtr kept(element);
    relink(element);
    if (!behind.isNull())
        element->findLast()->m_next = behind;
    return kept;
}

OdUInt32 OdResBuf::numElements() const
{
    OdUInt32 count = 0;
    for (const OdResBuf* at = this; at; at = at->m_next.get())
        ++count;
    return count;
}

void OdResBuf::throwWrongType()
{
    odThrow(eInvalidResBuf);
}

template<class T>
T OdResBuf::narrow() const
{
    if (const bool* truth = std::get_if<bool>(&m_value))
        return *truth;
    const OdInt64 wide = value<OdInt64>();
    if (wide < std::numeric_limits<T>::min() || wide > std::numeric_limits<T>::max())
        throwWrongType();
    return static_cast<T>(wide);
}

bool OdResBuf::getBool() const
{
    return narrow<OdInt64>() != 0;
}

OdInt8 OdResBuf::getInt8() const
{
    return narrow<OdInt8>();
}

OdInt16 OdResBuf::getInt16() const
{
    return narrow<OdInt16>();
}

OdInt32 OdResBuf::getInt32() const
{
    return narrow<OdInt32>();
}

OdInt64 OdResBuf::getInt64() const
{
    return narrow<OdInt64>();
}

OdGePoint2d OdResBuf::getPoint2d() const
{
    if (const OdGePoint3d* point = std::get_if<OdGePoint3d>(&m_value))
        return point->convert2d();
    return value<OdGePoint2d>();
}

OdGePoint3d OdResBuf::getPoint3d() const
{
    if (const OdGePoint2d* point = std::get_if<OdGePoint2d>(&m_value))
        return OdGePoint3d(*point, 0.0);
    return value<OdGePoint3d>();
}

OdDbHandle OdResBuf::getHandle() const
{
    return value<OdDbHandle>();
}

OdCmColor OdResBuf::getColor() const
{
    return *value<std::shared_ptr<const OdCmColor>>();
}

void OdResBuf::setResBuf(OdResBuf* value)
{
    checkLink(value);
    m_value = OdResBufPtr(value);
}

OdRxObjectPtr OdResBuf::clone() const
{
    struct Task
    {
        const OdResBuf* source;
        OdResBufPtr* target;
    };
    OdResBufPtr first;
    std::vector<Task> tasks{{this, &first}};
    while (!tasks.empty())
    {
        const Task task = tasks.back();
        tasks.pop_back();
        OdResBufPtr* target = task.target;
        for (const OdResBuf* at = task.source; at; at = at->m_next.get())
        {
            *target = newRb(at->m_resType);
            OdResBuf& made = **target;
            made.m_value = at->m_value;
            if (OdResBufPtr* chain = std::get_if<OdResBufPtr>(&made.m_value); chain && !chain->isNull())
                tasks.push_back({std::get<OdResBufPtr>(at->m_value).get(), chain});
            target = &made.m_next;
        }
    }
    return first;
}

void OdResBuf::copyFrom(const OdRxObject* source)
{
    const OdRxObjectPtr kept(source);
    const OdResBufPtr other(kept);
    if (other.isNull())
        odThrow(eNullPtr);
    m_resType = other->m_resType;
    m_value = other->m_value;
}

bool OdResBuf::isEqualTo(const OdRxObject* other) const
{
    const OdResBufPtr element = cast(other);
    if (element.isNull() || element->m_resType != m_resType)
        return false;
    using Color = std::shared_ptr<const OdCmColor>;
    const Color* own = std::get_if<Color>(&m_value);
    const Color* others = std::get_if<Color>(&element->m_value);
    return own && others ? **own == **others : m_value == element->m_value;
}
