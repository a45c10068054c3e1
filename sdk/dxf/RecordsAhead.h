// Reads the records of a long section on several processors.
#pragma once

#include "BlockContents.h"
#include "KnownRecords.h"
#include "Reading.h"

#include <array>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace dxf
{

/// The records of a section in parts that threads take apart one after the other, while this one makes objects of them
/// in the order of the file. What other threads cannot do without the database, and whatever is wrong with the file, is
/// read again by this one, as if there were no others.
class RecordsAhead
{
public:
    /// Begins at the head of the reader. Does nothing for a section that is short, or for a file that cannot be cut.
    explicit RecordsAhead(Reading& reading);
    ~RecordsAhead();
    RecordsAhead(const RecordsAhead&) = delete;
    RecordsAhead& operator=(const RecordsAhead&) = delete;

    /// Places the records of the part that begins at the head of the reader, which stands behind them afterwards.
    /// Returns false when there is no such part: then the section is read on record by record.
    bool placePart(BlockContents& contents);

private:
    struct PartRecord
    {
        Record record;
        ScanPosition at;      // lines are counted from the beginning of the part
        bool isWhole = false; // or else to be read again
    };

    /// What lies between two places of the file at which records begin.
    struct Part
    {
        std::size_t begin = 0;
        std::size_t end = 0;
        bool isRead = false;
        bool hasFailed = false;
        bool endsSection = false;
        ScanPosition finish;            // the head behind its last record
        std::deque<PartRecord> records; // filled over and over again
        std::size_t count = 0;          // so many of them belong to the part
    };

    /// Takes parts apart; one for each thread.
    struct Reader
    {
        Reader(Reading& reading, const KnownRecords& known);

        FaultLog faults;
        TagScanner scanner;
        RecordReader records;
    };

    static constexpr std::size_t kPart = std::size_t{128} << 10; // bytes
    static constexpr std::size_t kHeld = 8;                      // parts that are read or wait for being placed
    static constexpr unsigned int kMostThreads = 4;              // placing keeps up with no more

    void start();
    void stop();
    void work(Reader& reader);
    bool mayRead() const;
    Part& held(std::size_t number) { return m_parts[number % kHeld]; }
    Part* waitForPart(std::size_t begin);
    void readNext(std::unique_lock<std::mutex>& lock, Reader& reader);
    static void read(Part& part, Reader& reader);
    std::size_t findHead(std::size_t from) const;

    Reading& m_reading;
    std::size_t m_begin = 0;
    std::unique_ptr<const KnownRecords> m_known;
    std::vector<std::unique_ptr<Reader>> m_readers; // the first is for this thread
    std::vector<std::thread> m_threads;

    std::mutex m_mutex; // for what follows
    std::condition_variable m_changed;
    std::array<Part, kHeld> m_parts;
    std::size_t m_placed = 0;    // number of parts
    std::size_t m_taken = 0;     // number of parts that are read or being read
    std::size_t m_nextBegin = 0; // of the part behind them
    bool m_atEnd = false;        // of the section, that is
    bool m_isStopped = true;
};

} // namespace dxf
