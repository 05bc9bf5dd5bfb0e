#include "sim/tcp_server.h"

#include <gtest/gtest.h>

#include <asio.hpp>
#include <filesystem>
#include <system_error>

namespace calyx::sim {
namespace {

using asio::ip::tcp;

class Client {
  public:
    explicit Client(const TcpSimulator& simulator) {
        socket_.connect({asio::ip::address_v4::loopback(), simulator.Port()});
    }

    void Send(const std::string& bytes) { asio::write(socket_, asio::buffer(bytes)); }
    // As many bytes as are expected, or fewer when the connection ends before.
    std::string Read(std::size_t count) {
        std::string bytes(count, '\0');
        std::error_code error;
        bytes.resize(asio::read(socket_, asio::buffer(bytes), error));
        return bytes;
    }
    std::string Ask(const std::string& line, const std::string& expected) {
        Send(line + "\r");
        return Read(expected.size());
    }
    bool AtEnd() {
        char byte = 0;
        std::error_code error;
        asio::read(socket_, asio::buffer(&byte, 1), error);
        return static_cast<bool>(error);
    }
    void Close() { socket_.close(); }

  private:
    asio::io_context io_;
    tcp::socket socket_{io_};
};

TEST(TcpSimulator, AnswersOverTheWire) {
    TcpSimulator simulator({});
    EXPECT_EQ(simulator.Address(), "127.0.0.1:" + std::to_string(simulator.Port()));
    Client client(simulator);
    for (const auto& row :
         {std::pair{"\rVERSION", "V3.10.02 MERRIN\r\n"}, {"UID=7", "OK\r\n"}, {"NO WORD", "??\r\n"}}) {
        EXPECT_EQ(client.Ask(row.first, row.second), row.second);
    }
    const auto snapshot = simulator.Snapshot();
    EXPECT_EQ(client.Ask("DUMPALL", snapshot.dump), snapshot.dump);
    EXPECT_EQ(snapshot.received, (std::vector<std::string>{"", "VERSION", "UID=7", "NO WORD"}));
    simulator.ForgetReceived();
    EXPECT_EQ(simulator.Snapshot().receivedCount, 0u);
}

TEST(TcpSimulator, ManyLinesAtOnceAndBytewiseAnswersArriveInOrder) {
    TcpSimulator simulator({.content = "A=1", .faults = {"split"}});
    Client client(simulator);
    std::string sent;
    std::string expected;
    for (int i = 1; i <= 2000; ++i) {
        sent += "SP.VALUE#" + std::to_string(i) + "=" + std::to_string(i) + "\r\n";
        expected += "OK\r\n";
    }
    client.Send(sent);
    EXPECT_EQ(client.Read(expected.size()), expected);
    const auto dump = simulator.Snapshot().dump;
    EXPECT_EQ(client.Ask("DUMPALL", dump), dump);
}

TEST(TcpSimulator, DropsAndTakesTheNextConnection) {
    TcpSimulator simulator({.faults = {"drop:2"}});
    Client first(simulator);
    Client second(simulator);  // waits for its turn
    second.Send("UID\r");
    EXPECT_EQ(first.Ask("UID=2", "OK\r\n"), "OK\r\n");
    EXPECT_EQ(first.Ask("KNIX", "OK\r\n"), "OK\r\n");
    EXPECT_TRUE(first.AtEnd());
    EXPECT_EQ(second.Read(7), "UID=2\r\n");

    second.Send("BEGUN=");
    second.Close();
    Client third(simulator);
    EXPECT_EQ(third.Ask("KNIX", "OK\r\n"), "OK\r\n");
}

TEST(TcpSimulator, StopsWithAConnectionOpenAndStartsAgainOnItsPort) {
    TcpSimulator simulator({});
    const auto port = simulator.Port();
    Client idle(simulator);
    EXPECT_EQ(idle.Ask("KNIX", "OK\r\n"), "OK\r\n");
    simulator.Stop();
    simulator.Stop();
    EXPECT_TRUE(idle.AtEnd());
    EXPECT_EQ(simulator.Snapshot().receivedCount, 1u) << "what it knew is still there to be looked at";

    TcpSimulator again({}, port);
    Client client(again);
    EXPECT_EQ(client.Ask("KNIX", "OK\r\n"), "OK\r\n");
}

TEST(TcpSimulator, StopsWhileAHostDoesNotReadItsAnswers) {
    TcpSimulator simulator({.content = "A=" + std::string(60'000, 'x')});
    Client deaf(simulator);
    std::string flood;
    for (int i = 0; i < 1000; ++i) flood += "DUMPALL\r";  // 60 MB of answers: more than any socket takes
    deaf.Send(flood);
    EXPECT_EQ(deaf.Read(9), "VERSION=V");
    simulator.Stop();
    EXPECT_LT(simulator.Snapshot().receivedCount, 1000u) << "lines were taken faster than their answers left";
}

TEST(TcpSimulator, APortInUseIsSaidInWords) {
    TcpSimulator simulator({});
    try {
        TcpSimulator second({}, simulator.Port());
        ADD_FAILURE();
    } catch (const std::system_error& failure) {
        EXPECT_EQ(failure.code(), std::errc::address_in_use);
        EXPECT_NE(
            std::string(failure.what()).find("cannot listen on " + simulator.Address() + ", which another"),
            std::string::npos)
            << failure.what();
    }
    // Nor does a program get it that asks for reuse, which on some systems would take the port over.
    asio::io_context io;
    tcp::acceptor thief(io, tcp::v4());
    std::error_code error;
    thief.set_option(tcp::acceptor::reuse_address(true), error);
    thief.bind({asio::ip::address_v4::loopback(), simulator.Port()}, error);
    if (!error) thief.listen(1, error);
    EXPECT_TRUE(error);
    Client client(simulator);
    EXPECT_EQ(client.Ask("KNIX", "OK\r\n"), "OK\r\n") << "the first one goes on";
}

TEST(TcpSimulator, KeepsItsStateAndReportsWhenItCannot) {
    namespace fs = std::filesystem;
    const auto folder = fs::path(::testing::TempDir()) / "calyx_sim_tcp_state";
    fs::remove_all(folder);
    fs::create_directories(folder);
    const SimulatorOptions options{.stateFile = folder / "state"};
    {
        TcpSimulator simulator(options);
        Client client(simulator);
        EXPECT_EQ(client.Ask("UID=KEPT", "OK\r\n"), "OK\r\n");
    }
    std::string trouble;
    TcpSimulator again(options, TcpSimulator::kAnyPort, [&](const std::string& text) { trouble = text; });
    Client client(again);
    EXPECT_EQ(client.Ask("UID", "UID=KEPT\r\n"), "UID=KEPT\r\n");
    EXPECT_EQ(client.Ask("UID=2", "OK\r\n"), "OK\r\n");
    fs::remove_all(folder);
    again.Stop();
    EXPECT_NE(trouble.find("cannot write the state file"), std::string::npos) << trouble;
}

}  // namespace
}  // namespace calyx::sim
