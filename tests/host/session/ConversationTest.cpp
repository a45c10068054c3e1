// Requests and answers at the two ends of a session: in order, none held back, however they come.
#include <csignal>
#include <cstdint>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include "session/Conversation.h"

namespace
{

using Random = std::minstd_rand;

struct Pipe
{
    Pipe() { EXPECT_EQ(::pipe(ends), 0); }
    ~Pipe()
    {
        closeRead();
        closeWrite();
    }
    void closeRead() { close(ends[0]); }
    void closeWrite() { close(ends[1]); }
    static void close(int& end)
    {
        if (end >= 0)
            ::close(end);
        end = -1;
    }
    int ends[2] = {-1, -1};
};

// A front end that writes requests and takes the answers, whichever the pipes are ready for.
class Client
{
public:
    Client(int output, int input) : m_output(output), m_input(input) {}

    void send(const std::string& bytes) { m_bytes += bytes; }

    // Goes on until that many answers are there. Fails when nothing moves for a long time.
    bool receive(std::size_t count, std::size_t mostAtOnce)
    {
        while (m_answers.size() < count)
        {
            pollfd ends[] = {{m_input, POLLIN, 0}, {m_sent == m_bytes.size() ? -1 : m_output, POLLOUT, 0}};
            if (::poll(ends, 2, 20'000) <= 0)
                return false;
            if (ends[1].revents != 0)
            {
                const ssize_t sent = ::write(m_output, m_bytes.data() + m_sent,
                                             std::min({m_bytes.size() - m_sent, mostAtOnce, kPipeRoom}));
                if (sent < 0)
                    return false;
                m_sent += static_cast<std::size_t>(sent);
            }
            if (ends[0].revents != 0 && !take())
                return false;
        }
        return true;
    }

    const std::vector<std::string>& answers() const { return m_answers; }

private:
    static constexpr std::size_t kPipeRoom = 4096; // a write of so much does not wait when the pipe is ready

    bool take()
    {
        char bytes[1 << 16];
        const ssize_t count = ::read(m_input, bytes, sizeof bytes);
        for (ssize_t i = 0; i < count; ++i)
        {
            if (bytes[i] != '\n')
                m_line += bytes[i];
            else
                m_answers.push_back(std::exchange(m_line, {}));
        }
        return count > 0;
    }

    int m_output;
    int m_input;
    std::string m_bytes;
    std::size_t m_sent = 0;
    std::string m_line;
    std::vector<std::string> m_answers;
};

struct Exchange
{
    std::string request;
    std::string answer;
};

// Lengths around those at which a line stops being short, and lines that are no request.
Exchange exchange(int number, Random& random)
{
    static const std::size_t kLengths[] = {100, 65'400, 65'536, 65'537, 300'000};
    const std::string id = std::to_string(number);
    if (random() % 17 == 0)
        return {"{\"id\": " + id + ", \"command\"\n", "? the line is not JSON"};
    const std::size_t length = random() % 64 == 0 ? kLengths[random() % std::size(kLengths)] : 0;
    return {"{\"id\": " + id + ", \"command\": \"" + std::string(length, 'x') + "\"}\n",
            id + " " + std::to_string(length)};
}

// Answers as a session does, slowly now and then.
void serve(int input, int output)
{
    session::Conversation conversation(input, output);
    Random random(4);
    while (session::ReadRequest* const request = conversation.next())
    {
        const session::Request& read = request->reader->request();
        std::string answer = read.id + ' ' + std::to_string(read.command.getLength());
        try
        {
            if (request->fault)
                std::rethrow_exception(request->fault);
        }
        catch (const session::RequestError& error)
        {
            answer = "? " + std::string(error.what()).substr(0, 20);
        }
        if (random() % 64 == 0)
            std::this_thread::sleep_for(std::chrono::microseconds(random() % 400));
        if (random() % 256 == 0)
            answer += std::string(300'000, ' ');
        ASSERT_TRUE(conversation.answer(answer + '\n'));
    }
    EXPECT_TRUE(conversation.finish());
}

TEST(Conversation, AnswersAllInOrderAndHoldsNoneBack)
{
    // The client waits for all answers after each burst: one that were held back until more input comes would never be
    // seen. Bursts of 1 are a client that waits for each answer, the last one is a file.
    const struct
    {
        int bursts;
        int requests; // in each, at most
        std::size_t mostAtOnce;
    } cases[] = {{2'000, 1, 4096}, {1'500, 3, 4096}, {200, 90, 4096}, {20, 90, 61}, {1, 20'000, 4096}};
    for (const auto& row : cases)
    {
        SCOPED_TRACE(std::to_string(row.bursts) + " bursts of " + std::to_string(row.requests));
        Pipe requests;
        Pipe answers;
        std::thread server([&] { serve(requests.ends[0], answers.ends[1]); });
        Client client(requests.ends[1], answers.ends[0]);
        Random random(static_cast<unsigned>(row.requests));
        std::vector<std::string> expected;
        bool isAnswered = true;
        for (int burst = 0; burst < row.bursts && isAnswered; ++burst)
        {
            const int count = row.bursts == 1 ? row.requests : 1 + static_cast<int>(random() % row.requests);
            for (int i = 0; i < count; ++i)
            {
                const Exchange next = exchange(static_cast<int>(expected.size()), random);
                client.send(next.request);
                expected.push_back(next.answer);
            }
            isAnswered = client.receive(expected.size(), row.mostAtOnce);
        }
        requests.closeWrite();
        if (!isAnswered)
            answers.closeRead();
        server.join();
        ASSERT_TRUE(isAnswered) << client.answers().size() << " answers of " << expected.size();
        for (std::size_t i = 0; i < expected.size(); ++i)
        {
            const std::string& answer = client.answers()[i];
            ASSERT_EQ(answer.substr(0, answer.find_last_not_of(' ') + 1), expected[i]);
        }
    }
}

TEST(Conversation, EndsWhenNobodyTakesAnswers)
{
    std::signal(SIGPIPE, SIG_IGN);
    for (const int taken : {0, 1, 40, 500})
    {
        Pipe requests;
        Pipe answers;
        std::thread feeder(
            [&]
            {
                const std::string line = "{\"id\": 1, \"command\": \"C\"}\n";
                for (int i = 0; i < 1'000; ++i)
                    EXPECT_EQ(::write(requests.ends[1], line.data(), line.size()), static_cast<ssize_t>(line.size()));
                requests.closeWrite();
            });
        session::Conversation conversation(requests.ends[0], answers.ends[1]);
        int asked = 0;
        bool isTaken = true;
        while (isTaken && conversation.next() != nullptr)
        {
            if (asked++ == taken)
                answers.closeRead();
            isTaken = conversation.answer("an answer\n");
        }
        EXPECT_FALSE(conversation.finish());
        while (conversation.next() != nullptr) // so that the feeder ends
            ++asked;
        EXPECT_EQ(asked, 1'000);
        feeder.join();
    }
}

} // namespace
