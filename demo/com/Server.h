#pragma once

#include <windows.h>

#include "demo/com/Behaviour.h"
#include "demo/com/ClassFactory.h"
#include "demo/com/Registration.h"

namespace demo {

/// COM on the current thread as a single-threaded apartment, as long as it lives.
class Apartment {
  public:
    Apartment();
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment();
};

/// The application object of a server: found by clients as the running instance, or made for them. What comes
/// in is treated as the behaviour says.
class Server {
  public:
    /// Known under all of the classes. `source` is what exceptions name as their origin.
    Server(std::vector<ServerClass> classes, const std::wstring& source);
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server();

    /// From now on clients find the object as the running instance. Throws RuntimeError.
    void publish(const ObjectPtr& application);
    /// From now on COM gives the object to the client that made it start this program. Throws RuntimeError.
    void offer(const ObjectPtr& application);

    /// `step` is told after each call that was carried out.
    void setAfterCall(std::function<void()> step) { exporter_->afterCall = std::move(step); }

    /// Obeys a command to the behaviour, or `enumerate asked`, `single`, `unending`, `none` or `endless`, see
    /// EnumeratorManner; false when it is none of these.
    bool obey(const std::wstring& command);
    const WireCounters& counters() const { return exporter_->counters(); }

  private:
    std::vector<ServerClass> classes_;
    std::shared_ptr<Behaviour> behaviour_;
    std::shared_ptr<Exporter> exporter_;
    ComPtr<IStream> standingEnumerator_;
    std::vector<DWORD> running_;
    std::vector<DWORD> offered_;
};

/// True once clients can find the class as a running instance; false when they cannot after so many
/// milliseconds. Needs an Apartment.
bool awaitRunning(const ServerClass& server, DWORD milliseconds);

}  // namespace demo
