#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "wire/server/certificate.h"
#include "wire/server/dialog.h"
#include "wire/server/login.h"

namespace desk::wire {

class Channel;

/// What becomes of a batch.
enum class Fate {
    answered,
    unanswered,        ///< silence, whatever the client does
    waitsUntilCalled,  ///< silence until the client calls the statement off, as where another seat holds the
                       ///< rows
    lostBefore,        ///< the line goes before it was run
    lostAfter,         ///< the line goes when it was run, before the answer
    lostWithin,        ///< the line goes in the midst of the answer
};

/// How a server behaves.
struct Behaviour {
    std::string user = "sa";
    std::string password = "Secret";
    bool encrypts = false;
    bool neverGreets = false;               ///< takes the line, and says nothing
    std::optional<std::size_t> cutAfter{};  ///< so many bytes sent on a line
    std::function<Fate(std::string_view)> fate = [](std::string_view) { return Fate::answered; };
    Describing describing = [](std::string_view, std::vector<DescribedColumn>&) {};
    /// A failure that a batch ends with instead of being run.
    std::function<std::optional<Failure>(std::string_view)> failure = [](std::string_view) {
        return std::nullopt;
    };
};

/// A batch that has come.
struct Batch {
    std::string text;
    bool encrypted;
};

/// A database server on this machine, for tests: it speaks the protocol of the office's server and answers
/// from the embedded engine.
///
/// A client's database is a file in the server's folder; ":memory:" is a new one for each client, and one
/// that is "empty" is without tables until they are made.
class Server {
  public:
    explicit Server(std::string folder, Behaviour behaviour = {});
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    int port() const { return port_; }
    /// As a connection string names it.
    std::string dataSource() const { return "127.0.0.1," + std::to_string(port_); }
    /// The name of the database to connect to, made if there is none.
    void createDatabase(const std::string& name);
    /// Lets clients connect to a database without tables.
    void createEmpty(const std::string& name);
    const Certificate& certificate() const { return certificate_; }

    /// For clients that come, and for batches that come from now on.
    void behave(Behaviour behaviour);
    /// All batches that have come so far.
    std::vector<Batch> batches() const;
    /// What the clients told about themselves.
    std::vector<Login> logins() const;

  private:
    struct Seat;

    void listen();
    void serve(Channel& channel);
    /// Everything up to the answer to the login; the database, if it was accepted.
    std::optional<std::string> greet(Channel& channel);
    std::optional<Failure> refusalOf(const Login& login) const;
    std::string pathOf(const std::string& database) const;
    void converse(Channel& channel, Dialog& dialog);
    void reply(Channel& channel, const std::string& batch, Dialog& dialog);
    Behaviour behaviour() const;

    std::string folder_;
    Certificate certificate_;
    int listener_;
    int port_ = 0;

    mutable std::mutex mutex_;
    Behaviour behaviour_;
    std::map<std::string, std::shared_ptr<MadeTables>, std::less<>> empty_;
    std::vector<Batch> batches_;
    std::vector<Login> logins_;
    bool ending_ = false;
    std::vector<std::unique_ptr<Seat>> seats_;
    std::thread listening_;
};

}  // namespace desk::wire
