// The list type of the SDK.
#pragma once

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "OdPlatform.h"

/** Throws OdError (eInvalidIndex), OdError (eOutOfMemory). */
[[noreturn]] void odThrowInvalidIndex();
[[noreturn]] void odThrowOutOfMemory();

/** Name how the elements of an OdArray are kept; both have the same effect. */
template<class T>
class OdObjectsAllocator
{
};
template<class T>
class OdMemoryAllocator
{
};

/** An OdArray is a list of elements in one piece of memory that copies share until one of them is changed: a copy costs
    as much as a pointer, the first change of a shared one copies the elements. Different arrays may be used by
   different threads at the same time, also when they share their elements; one array may not be changed by one thread
   while another uses it.

    Elements are counted from 0. Operations that take an index throw OdError (eInvalidIndex) for one that names no
    element, and all that make room throw OdError (eOutOfMemory); the array is unchanged then. Access through a
    non-const array counts as a change, so that it copies shared elements: getAt(), getPtr() and const arrays only
    read. */
template<class T, class Allocator = OdObjectsAllocator<T>>
class OdArray
{
public:
    using size_type = unsigned int;
    using value_type = T;
    using iterator = T*;
    using const_iterator = const T*;
    using reference = T&;
    using const_reference = const T&;

    OdArray() noexcept = default;
    /** An empty array with room for physicalLength elements; growLength is accepted for compatibility. */
    explicit OdArray(size_type physicalLength, int growLength = 8)
    {
        static_cast<void>(growLength);
        reserve(physicalLength);
    }
    OdArray(std::initializer_list<T> elements) { append(elements.begin(), elements.end()); }
    OdArray(const OdArray& source) noexcept : m_data(source.m_data) { share(); }
    OdArray(OdArray&& source) noexcept : m_data(std::exchange(source.m_data, nullptr)) {}
    ~OdArray() { unshare(); }
    OdArray& operator=(const OdArray& source) noexcept
    {
        if (this != &source)
            *this = OdArray(source);
        return *this;
    }
    OdArray& operator=(OdArray&& source) noexcept
    {
        std::swap(m_data, source.m_data);
        return *this;
    }

    // ---- Size ----------------------------------------------------------------------------------------------------

    size_type size() const noexcept { return m_data ? header()->length : 0; }
    size_type length() const noexcept { return size(); }
    int logicalLength() const noexcept { return static_cast<int>(size()); }
    bool isEmpty() const noexcept { return size() == 0; }
    bool empty() const noexcept { return isEmpty(); }
    size_type capacity() const noexcept { return m_data ? header()->capacity : 0; }
    size_type physicalLength() const noexcept { return capacity(); }

    /** Makes room for so many elements. */
    OdArray& reserve(size_type length)
    {
        if (length > capacity())
            reallocate(length);
        return *this;
    }
    /** Adds elements (as T() or as value) or removes them at the end. */
    void resize(size_type length)
    {
        changeLength(length, [](T* place) { new (place) T(); });
    }
    void resize(size_type length, const T& value)
    {
        const T copy(value);
        changeLength(length, [&copy](T* place) { new (place) T(copy); });
    }
    OdArray& setLogicalLength(size_type length)
    {
        resize(length);
        return *this;
    }
    /** Removes all elements. */
    void clear() { resize(0); }
    /** As reserve when length is greater than the capacity, else gives memory back, and elements that do not fit. */
    OdArray& setPhysicalLength(size_type length)
    {
        if (length < size())
            resize(length);
        if (length == 0)
            *this = OdArray();
        else if (length != capacity())
            reallocate(length);
        return *this;
    }
    OdArray& setGrowLength(int) { return *this; }

    // ---- Access --------------------------------------------------------------------------------------------------

    T& operator[](size_type index)
    {
        check(index);
        own();
        return m_data[index];
    }
    const T& operator[](size_type index) const
    {
        check(index);
        return m_data[index];
    }
    T& at(size_type index) { return (*this)[index]; }
    const T& at(size_type index) const { return (*this)[index]; }
    const T& getAt(size_type index) const { return (*this)[index]; }
    OdArray& setAt(size_type index, const T& value)
    {
        check(index);
        T copy(value);
        own();
        m_data[index] = std::move(copy);
        return *this;
    }
    void setAll(const T& value)
    {
        const T copy(value); // value may be an element. NOLINT(performance-unnecessary-copy-initialization)
        own();
        std::fill(m_data, m_data + size(), copy);
    }
    T& first() { return (*this)[0]; }
    const T& first() const { return (*this)[0]; }
    T& front() { return (*this)[0]; }
    const T& front() const { return (*this)[0]; }
    /** For an empty array: OdError (eInvalidIndex). */
    T& last() { return (*this)[size() - 1]; }
    const T& last() const { return (*this)[size() - 1]; }
    T& back() { return last(); }
    const T& back() const { return last(); }

    iterator begin()
    {
        own();
        return m_data;
    }
    iterator end()
    {
        own();
        return m_data + size();
    }
    const_iterator begin() const noexcept { return m_data; }
    const_iterator end() const noexcept { return m_data + size(); }
    const_iterator cbegin() const noexcept { return begin(); }
    const_iterator cend() const noexcept { return end(); }

    /** The elements in a row; null when the array never had any. */
    T* asArrayPtr() { return begin(); }
    const T* asArrayPtr() const noexcept { return m_data; }
    const T* getPtr() const noexcept { return m_data; }
    T* data() { return begin(); }
    const T* data() const noexcept { return m_data; }

    // ---- Adding --------------------------------------------------------------------------------------------------

    /** Puts an element, which may be one of the array's own, at the end. Returns its index. */
    size_type append(const T& value)
    {
        push_back(value);
        return size() - 1;
    }
    T* append()
    {
        resize(size() + 1);
        return &last();
    }
    OdArray& append(const OdArray& other)
    {
        const OdArray kept(other); // other may be this array. NOLINT(performance-unnecessary-copy-initialization)
        append(kept.begin(), kept.end());
        return *this;
    }
    template<class Iterator>
    void append(Iterator first, Iterator last)
    {
        insert(end(), first, last);
    }
    void push_back(const T& value)
    {
        if (hasRoom())
            new (m_data + header()->length) T(value);
        else
        {
            T copy(value);
            makeRoom(1);
            new (m_data + header()->length) T(std::move(copy));
        }
        ++header()->length;
    }
    void push_back(T&& value)
    {
        T taken(std::move(value));
        makeRoom(1);
        new (m_data + header()->length) T(std::move(taken));
        ++header()->length;
    }
    template<class... Arguments>
    T& emplace_back(Arguments&&... arguments)
    {
        push_back(T(std::forward<Arguments>(arguments)...));
        return m_data[header()->length - 1];
    }
    /** Puts an element before the one with that index, or at the end when index is the size. */
    OdArray& insertAt(size_type index, const T& value)
    {
        if (index > size())
            odThrowInvalidIndex();
        T copy(value);
        makeRoom(1);
        new (m_data + header()->length) T(std::move(copy));
        ++header()->length;
        std::rotate(m_data + index, m_data + header()->length - 1, m_data + header()->length);
        return *this;
    }
    iterator insert(iterator before, const T& value)
    {
        const size_type index = static_cast<size_type>(before - m_data);
        insertAt(index, value);
        return m_data + index;
    }
    /** The elements inserted must not be the array's own. */
    template<class Iterator>
    void insert(iterator before, Iterator first, Iterator last)
    {
        const size_type index = static_cast<size_type>(before - m_data);
        const size_type oldLength = size();
        for (; first != last; ++first)
            push_back(*first);
        if (index < oldLength)
            std::rotate(m_data + index, m_data + oldLength, m_data + size());
    }

    // ---- Removing ------------------------------------------------------------------------------------------------

    OdArray& removeAt(size_type index)
    {
        check(index);
        return removeSubArray(index, index);
    }
    /** Removes the first element, from start on, that equals value. Returns true when there was one. */
    bool remove(const T& value, size_type start = 0)
    {
        size_type index = 0;
        if (!find(value, index, start))
            return false;
        removeAt(index);
        return true;
    }
    /** Removes the elements from startIndex to endIndex, both included. */
    OdArray& removeSubArray(size_type startIndex, size_type endIndex)
    {
        check(endIndex);
        if (startIndex > endIndex)
            odThrowInvalidIndex();
        erase(m_data + startIndex, m_data + endIndex + 1);
        return *this;
    }
    OdArray& removeFirst() { return removeAt(0); }
    OdArray& removeLast() { return removeAt(size() - 1); }
    void pop_back() { removeLast(); }
    iterator erase(iterator first, iterator last)
    {
        const size_type from = static_cast<size_type>(first - m_data);
        const size_type count = static_cast<size_type>(last - first);
        if (count)
        {
            own();
            std::move(m_data + from + count, m_data + size(), m_data + from);
            std::destroy(m_data + size() - count, m_data + size());
            header()->length -= count;
        }
        return m_data + from;
    }
    iterator erase(iterator where) { return erase(where, where + 1); }

    // ---- Finding and ordering ------------------------------------------------------------------------------------

    bool contains(const T& value, size_type start = 0) const
    {
        size_type index = 0;
        return find(value, index, start);
    }
    /** Looks from start on for an element that equals value. Sets foundAt only when there is one. */
    bool find(const T& value, size_type& foundAt, size_type start = 0) const
    {
        for (size_type i = start; i < size(); ++i)
            if (m_data[i] == value)
            {
                foundAt = i;
                return true;
            }
        return false;
    }
    OdArray& reverse()
    {
        std::reverse(begin(), end());
        return *this;
    }
    OdArray& swap(size_type firstIndex, size_type secondIndex)
    {
        check(firstIndex);
        check(secondIndex);
        own();
        std::swap(m_data[firstIndex], m_data[secondIndex]);
        return *this;
    }
    void swap(OdArray& other) noexcept { std::swap(m_data, other.m_data); }

    bool operator==(const OdArray& other) const
    {
        return m_data == other.m_data || std::equal(begin(), end(), other.begin(), other.end());
    }

private:
    /** Stands before the elements. */
    struct Header
    {
        std::atomic<int> references;
        size_type length;
        size_type capacity;
    };
    static constexpr std::size_t kAlignment = std::max(alignof(Header), alignof(T));
    static constexpr std::size_t kHeaderSize = (sizeof(Header) + kAlignment - 1) / kAlignment * kAlignment;

    /** True for elements that need more than what memory is aligned to anyway. */
    static constexpr bool kNeedsAlignment = kAlignment > __STDCPP_DEFAULT_NEW_ALIGNMENT__;

    Header* header() const noexcept
    {
        return reinterpret_cast<Header*>(reinterpret_cast<char*>(const_cast<std::remove_const_t<T>*>(m_data)) -
                                         kHeaderSize);
    }
    bool isShared() const noexcept { return header()->references.load(std::memory_order_acquire) > 1; }
    bool hasRoom() const noexcept { return m_data && !isShared() && header()->length < header()->capacity; }
    void check(size_type index) const
    {
        if (index >= size())
            odThrowInvalidIndex();
    }
    void share() const noexcept
    {
        if (m_data)
            header()->references.fetch_add(1, std::memory_order_relaxed);
    }
    void unshare() noexcept
    {
        if (m_data && (!isShared() || header()->references.fetch_sub(1, std::memory_order_acq_rel) == 1))
        {
            std::destroy(m_data, m_data + header()->length);
            release(m_data);
        }
    }
    static void* allocateBytes(std::size_t size) noexcept
    {
        if constexpr (kNeedsAlignment)
            return ::operator new(size, std::align_val_t(kAlignment), std::nothrow);
        else
            return ::operator new(size, std::nothrow);
    }
    static T* allocate(size_type capacity)
    {
        void* memory = allocateBytes(kHeaderSize + std::size_t(capacity) * sizeof(T));
        if (!memory)
            odThrowOutOfMemory();
        new (memory) Header{{1}, 0, capacity};
        return reinterpret_cast<T*>(static_cast<char*>(memory) + kHeaderSize);
    }
    static void release(T* data) noexcept
    {
        void* memory = reinterpret_cast<char*>(data) - kHeaderSize;
        if constexpr (kNeedsAlignment)
            ::operator delete(memory, std::align_val_t(kAlignment));
        else
            ::operator delete(memory);
    }
    /** Gives the array memory of its own for that many elements, with those it has. */
    void reallocate(size_type capacity)
    {
        const size_type kept = size();
        OdArray moved;
        moved.m_data = allocate(std::max(capacity, kept));
        if (kept && isShared())
            std::uninitialized_copy(m_data, m_data + kept, moved.m_data);
        else if (kept)
            std::uninitialized_move(m_data, m_data + kept, moved.m_data);
        moved.header()->length = kept;
        std::swap(m_data, moved.m_data);
    }
    void own()
    {
        if (m_data && isShared())
            reallocate(size());
    }
    void makeRoom(size_type more)
    {
        const size_type present = size();
        if (more > UINT_MAX - present)
            odThrowOutOfMemory();
        const size_type needed = present + more;
        if (needed > capacity())
            reallocate(std::max(needed, present < UINT_MAX / 2 ? present + present / 2 + 4 : needed));
        else if (m_data && isShared())
            reallocate(needed);
    }
    template<class Construct>
    void changeLength(size_type length, Construct construct)
    {
        if (length == size())
            return;
        if (length < size())
        {
            own();
            std::destroy(m_data + length, m_data + size());
            header()->length = length;
            return;
        }
        makeRoom(length - size());
        while (header()->length < length)
        {
            construct(m_data + header()->length);
            ++header()->length;
        }
    }

    T* m_data = nullptr;
};

using OdCharArray = OdArray<OdChar>;
using OdBoolArray = OdArray<bool>;
using OdInt8Array = OdArray<OdInt8>;
using OdUInt8Array = OdArray<OdUInt8>;
using OdInt16Array = OdArray<OdInt16>;
using OdUInt16Array = OdArray<OdUInt16>;
using OdInt32Array = OdArray<OdInt32>;
using OdUInt32Array = OdArray<OdUInt32>;
using OdInt64Array = OdArray<OdInt64>;
using OdUInt64Array = OdArray<OdUInt64>;
using OdIntArray = OdArray<int>;
using OdUIntArray = OdArray<unsigned int>;
using OdDoubleArray = OdArray<double>;
