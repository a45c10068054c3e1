// Reads one line of the session's input.
#include "session/RequestReader.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

namespace session
{

namespace
{

constexpr std::size_t kReusedMemory = std::size_t{8} * 1024;
constexpr std::size_t kLongRequest = std::size_t{1024} * 1024; // in units
constexpr int kDeepestNesting = 512;
constexpr std::size_t kShownDigits = 40;

// Numbers come as text, so that the id's are kept to the digit and none is beyond a number type.
constexpr unsigned kParseFlags =
    rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;

enum Member : unsigned
{
    kId = 1,
    kCommand = 2,
    kParameters = 4,
    kInput = 8
};

constexpr std::wstring_view kParametersName = L"parameters";
constexpr std::wstring_view kInputName = L"input";

struct MemberName
{
    std::wstring_view name;
    Member member;
};
constexpr MemberName kMemberNames[] = {
    {L"id", kId}, {L"command", kCommand}, {kParametersName, kParameters}, {kInputName, kInput}};

std::string quoted(std::wstring_view units)
{
    return '"' + odStringToUtf8(joinSurrogates(units.data(), units.size())) + '"';
}

// Takes the parser's events: hands them to the document, but the value of "id", which it writes as text.
class RequestHandler
{
public:
    using Ch = wchar_t;

    RequestHandler(WideDocument& document, Request& request, LargeNumbers& largeNumbers)
        : m_document(document), m_request(request), m_largeNumbers(largeNumbers)
    {
    }

    const std::string& fault() const { return m_fault; }

    bool Null()
    {
        return scalar([](auto& to) { to.Null(); });
    }
    bool Bool(bool value)
    {
        return scalar([value](auto& to) { to.Bool(value); });
    }
    bool String(const Ch* units, rapidjson::SizeType length, bool copy)
    {
        if (m_depth == 1 && m_member == kCommand)
        {
            m_request.hasCommand = true;
            m_request.command = joinSurrogates(units, length);
        }
        return scalar([=](auto& to) { to.String(units, length, copy); });
    }
    bool RawNumber(const Ch* digits, rapidjson::SizeType length, bool)
    {
        // Nothing but ASCII in a number.
        if (const std::string* const large = m_largeNumbers.next())
            m_digits = *large;
        else
            m_digits.assign(digits, digits + length);
        if (m_idWriter)
        {
            const std::wstring wide(m_digits.begin(), m_digits.end());
            m_idWriter->RawValue(wide.data(), wide.size(), rapidjson::kNumberType);
            return endValue();
        }
        return number() && endValue();
    }

    bool StartObject()
    {
        ++m_depth;
        return begin([](auto& to) { to.StartObject(); });
    }
    bool Key(const Ch* units, rapidjson::SizeType length, bool copy)
    {
        if (m_idWriter)
            return m_idWriter->Key(units, length, copy);
        if (m_depth == 1 && !beginMember({units, length}))
            return false;
        return m_document.Key(units, length, copy);
    }
    bool EndObject(rapidjson::SizeType count)
    {
        return end([count](auto& to) { to.EndObject(count); });
    }
    bool StartArray()
    {
        ++m_depth;
        return begin([](auto& to) { to.StartArray(); });
    }
    bool EndArray(rapidjson::SizeType count)
    {
        return end([count](auto& to) { to.EndArray(count); });
    }

    // Numbers always come as text.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(std::int64_t) { return false; }
    bool Uint64(std::uint64_t) { return false; }
    bool Double(double) { return false; }

private:
    using IdWriter = rapidjson::Writer<rapidjson::StringBuffer, WideEncoding, rapidjson::UTF8<>>;

    bool refuse(std::string fault)
    {
        m_fault = std::move(fault);
        return false;
    }

    bool beginMember(std::wstring_view name)
    {
        for (const MemberName& row : kMemberNames)
        {
            if (row.name != name)
                continue;
            if (m_seen & row.member)
                return refuse("the request has two members " + quoted(name));
            m_seen |= row.member;
            m_member = row.member;
            if (m_member == kId)
            {
                m_idText.Clear();
                m_idWriter.emplace(m_idText);
            }
            return true;
        }
        return refuse("a request has no member " + quoted(name));
    }

    template<class Event>
    bool send(Event event)
    {
        if (m_idWriter)
            event(*m_idWriter);
        else
            event(m_document);
        return true;
    }

    template<class Event>
    bool scalar(Event event)
    {
        return send(event) && endValue();
    }

    template<class Event>
    bool begin(Event event)
    {
        if (m_depth > kDeepestNesting)
            return refuse("the request is nested too deeply");
        return send(event);
    }

    template<class Event>
    bool end(Event event)
    {
        --m_depth;
        return send(event) && endValue();
    }

    bool endValue()
    {
        if (!m_idWriter || m_depth > 1)
            return true;
        m_request.hasId = true;
        m_request.id.assign(m_idText.GetString(), m_idText.GetSize());
        m_idWriter.reset();
        return m_document.Null(); // the document keeps a place for the member
    }

    bool number()
    {
        const char* const first = m_digits.data();
        const char* const last = first + m_digits.size();
        int integer = 0;
        const std::from_chars_result asInteger = std::from_chars(first, last, integer);
        if (asInteger.ec == std::errc() && asInteger.ptr == last)
            return m_document.Int(integer);
        const double real = std::strtod(first, nullptr);
        if (std::isinf(real))
            return refuse("the number " + m_digits.substr(0, kShownDigits) + " is out of range");
        return m_document.Double(real);
    }

    WideDocument& m_document;
    Request& m_request;
    LargeNumbers& m_largeNumbers;
    rapidjson::StringBuffer m_idText;
    std::optional<IdWriter> m_idWriter; // while the id's value is read
    std::string m_digits;
    std::string m_fault;
    int m_depth = 0;
    unsigned m_seen = 0;
    unsigned m_member = 0;
};

} // namespace

RequestReader::RequestReader() : m_memory(kReusedMemory)
{
    m_allocator = std::make_unique<rapidjson::MemoryPoolAllocator<>>(m_memory.data(), m_memory.size());
    m_document = std::make_unique<WideDocument>(m_allocator.get());
}

const Request& RequestReader::read(std::string_view line)
{
    m_request = Request();
    decode(line);
    parse(line);
    takeMembers();
    return m_request;
}

void RequestReader::releaseParameters()
{
    m_request.parameters = nullptr;
    if (m_request.input != nullptr || m_units.capacity() < kLongRequest)
        return;
    forgetDocument();
    m_units.release();
}

void RequestReader::forgetDocument()
{
    m_document->SetNull();
    m_allocator->Clear();
}

void RequestReader::decode(std::string_view line)
{
    const std::size_t nullByte = line.find('\0');
    if (nullByte != std::string_view::npos)
        throw RequestError("the line is not JSON: a null byte at byte " + std::to_string(nullByte + 1));
    const std::size_t decoded = m_units.decode(line);
    if (decoded != line.size())
        throw RequestError("the line is not UTF-8 from byte " + std::to_string(decoded + 1) + " on");
    const std::size_t half = hasEscapedUnits(line) ? findLoneSurrogateEscape(m_units.text()) : std::wstring_view::npos;
    if (half != std::wstring_view::npos)
        throw RequestError("the line is not JSON: half a surrogate pair at character " + std::to_string(half + 1));
}

void RequestReader::parse(std::string_view line)
{
    forgetDocument();
    m_largeNumbers.takeOut(line, m_units.units());
    RequestHandler handler(*m_document, m_request, m_largeNumbers);
    rapidjson::ParseResult outcome;
    auto generate = [&](WideDocument&)
    {
        rapidjson::GenericInsituStringStream<WideEncoding> stream(m_units.units().data());
        rapidjson::GenericReader<WideEncoding, WideEncoding> reader;
        outcome = reader.Parse<kParseFlags>(stream, handler);
        return !outcome.IsError();
    };
    m_document->Populate(generate);
    if (!handler.fault().empty())
        throw RequestError(handler.fault());
    if (outcome.IsError())
        throw RequestError("the line is not JSON: " + std::string(rapidjson::GetParseError_En(outcome.Code())) +
                           " At character " + std::to_string(outcome.Offset() + 1));
}

void RequestReader::takeMembers()
{
    if (!m_document->IsObject())
        throw RequestError("a request is a JSON object");
    for (const auto& member : std::as_const(*m_document).GetObject())
    {
        const std::wstring_view name(member.name.GetString(), member.name.GetStringLength());
        if (member.value.IsNull())
            continue;
        if (name == kParametersName)
            m_request.parameters = &member.value;
        else if (name == kInputName)
            m_request.input = &member.value;
    }
    if (!m_request.hasCommand)
        throw RequestError("a request has a member \"command\", which is a string");
    if (m_request.parameters != nullptr && !m_request.parameters->IsObject())
        throw RequestError("\"parameters\" is a JSON object");
    if (m_request.input != nullptr && !m_request.input->IsArray())
        throw RequestError("\"input\" is a JSON array");
}

} // namespace session
