// Cuts a section into parts:
//
//   ... LINE ... | CIRCLE ... LINE ... | TEXT ... INSERT ... | LINE ... ENDSEC
//       part 0         part 1               part 2             part 3
//
//   this thread     | read 0 | place 0 | place 1 | read 3 | place 2 | place 3
//   another thread  | read 1        | read 2           |
//
// A part begins at a line 0 with the name of a record behind it: no group code begins with a letter, so this 0 is no
// value. Still a part counts only when the one before has ended exactly where it begins.
#include "RecordsAhead.h"

#include <algorithm>
#include <exception>

namespace dxf
{
namespace
{

bool beginsName(std::string_view text)
{
    return !text.empty() && text.front() >= 'A' && text.front() <= 'Z';
}

} // namespace

RecordsAhead::Reader::Reader(Reading& reading, const KnownRecords& known)
    : scanner(reading.bytes, faults), records(reading.database, scanner, faults, known)
{
    records.setDecoder(reading.records.decoder());
}

RecordsAhead::RecordsAhead(Reading& reading) : m_reading(reading)
{
    m_begin = static_cast<std::size_t>(reading.scanner.tagPosition().offset);
    m_nextBegin = m_begin;
    const bool isLong = reading.bytes.size() - m_begin > kPart * 2;
    const bool mayBeCut = !reading.scanner.isBinary() && isLong && findHead(m_begin + kPart) < reading.bytes.size();
    if (mayBeCut && std::thread::hardware_concurrency() > 1)
        start();
}

RecordsAhead::~RecordsAhead()
{
    stop();
    for (std::thread& thread : m_threads)
        thread.join();
}

void RecordsAhead::start()
{
    const unsigned int threads = std::min(std::thread::hardware_concurrency(), kMostThreads);
    m_known = std::make_unique<KnownRecords>(m_reading.database);
    while (m_readers.size() < threads)
        m_readers.push_back(std::make_unique<Reader>(m_reading, *m_known));
    m_isStopped = false;
    try
    {
        while (m_threads.size() + 1 < threads)
            m_threads.emplace_back([this, &reader = *m_readers[m_threads.size() + 1]] { work(reader); });
    }
    catch (const std::exception&) // there may be no threads left
    {
        if (m_threads.empty())
            m_isStopped = true;
    }
}

void RecordsAhead::stop()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isStopped = true;
    }
    m_changed.notify_all();
}

void RecordsAhead::work(Reader& reader)
{
    std::unique_lock lock(m_mutex);
    for (;;)
    {
        m_changed.wait(lock, [this] { return m_isStopped || mayRead(); });
        if (m_isStopped)
            return;
        readNext(lock, reader);
    }
}

// ---- Placing
// ---------------------------------------------------------------------------------------------------------

bool RecordsAhead::placePart(BlockContents& contents)
{
    RecordReader& records = m_reading.records;
    const ScanPosition start = m_reading.scanner.tagPosition();
    Part* const part = waitForPart(static_cast<std::size_t>(start.offset));
    if (part == nullptr)
        return false;
    const auto inFile = [&start](ScanPosition inPart) {
        return ScanPosition{inPart.offset, start.line + inPart.line - 1};
    };
    std::size_t again = 0;
    for (std::size_t i = 0; i < part->count; ++i)
    {
        PartRecord& read = part->records[i];
        if (read.isWhole)
        {
            read.record.place.number += start.line - 1;
            contents.placeIntoItsBlock(read.record);
            continue;
        }
        records.seek(inFile(read.at));
        records.skipToHead();
        contents.readIntoItsBlock();
        ++again;
    }
    records.seek(inFile(part->finish));
    records.skipToHead();
    const bool isWorthIt = again * 2 <= part->count;
    {
        const std::lock_guard lock(m_mutex);
        part->isRead = false;
        ++m_placed;
        m_isStopped = m_isStopped || !isWorthIt;
    }
    m_changed.notify_all();
    return true;
}

// While the part is not read, this thread reads others.
RecordsAhead::Part* RecordsAhead::waitForPart(std::size_t begin)
{
    std::unique_lock lock(m_mutex);
    while (!m_isStopped)
    {
        Part& part = held(m_placed);
        if (m_placed < m_taken && part.isRead)
        {
            if (part.begin == begin && !part.hasFailed)
                return &part;
            m_isStopped = true;
        }
        else if (mayRead())
            readNext(lock, *m_readers.front());
        else if (m_placed < m_taken)
            m_changed.wait(lock);
        else
            m_isStopped = true;
    }
    m_changed.notify_all();
    return nullptr;
}

// ---- Reading
// ---------------------------------------------------------------------------------------------------------

bool RecordsAhead::mayRead() const
{
    return !m_atEnd && m_taken - m_placed < kHeld && m_nextBegin < m_reading.bytes.size();
}

void RecordsAhead::readNext(std::unique_lock<std::mutex>& lock, Reader& reader)
{
    Part& part = held(m_taken++);
    part.begin = m_nextBegin;
    const std::size_t leastEnd = m_begin + m_taken * kPart; // a long record reaches over several parts
    part.end = m_nextBegin = leastEnd > part.begin ? findHead(leastEnd) : part.begin;
    lock.unlock();
    read(part, reader);
    lock.lock();
    part.isRead = true;
    m_atEnd = m_atEnd || part.endsSection;
    m_changed.notify_all();
}

void RecordsAhead::read(Part& part, Reader& reader)
try
{
    part.hasFailed = false;
    part.endsSection = false;
    part.count = 0;
    part.finish = {part.begin, 1};
    reader.records.seek(part.finish);
    reader.records.skipToHead();
    for (;;)
    {
        part.endsSection = reader.records.atEndOfSection();
        part.finish = reader.records.atEnd() ? reader.scanner.position() : reader.scanner.tagPosition();
        if (part.endsSection || part.finish.offset >= part.end)
            return;
        if (part.count == part.records.size())
            part.records.emplace_back();
        PartRecord& next = part.records[part.count++];
        next.at = part.finish;
        next.isWhole = reader.records.readAhead(next.record);
    }
}
catch (...)
{
    part.hasFailed = true; // the same will happen to the thread that reads it again
}

// The first line 0 from a place on that has a name behind it; the end of the file when there is none.
std::size_t RecordsAhead::findHead(std::size_t from) const
{
    const std::string_view file = m_reading.bytes;
    for (std::size_t before = file.find('\n', from); before != std::string_view::npos;)
    {
        const std::size_t begin = before + 1;
        const std::size_t end = file.find('\n', begin);
        if (end == std::string_view::npos)
            break;
        if (trimmed(file.substr(begin, end - begin)) == "0" && beginsName(file.substr(end + 1)))
            return begin;
        before = end;
    }
    return file.size();
}

} // namespace dxf
