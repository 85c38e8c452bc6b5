#pragma once

#include <functional>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "platform/RuntimeError.h"
#include "platform/Value.h"

namespace blattwart {

/// Names one member of one class of an object model. The class matters because the same name has different
/// dispatch ids in different classes; the ids are looked up once per class and name. Both texts are literals.
struct Member {
    std::wstring_view className;
    std::wstring_view name;
};

/// One argument of a call: a value, or a variable that the called object may change (by reference). A
/// variable that holds a double is passed as double by reference, any other as variant by reference.
class Argument {
  public:
    Argument(Value value) : value_(std::move(value)) {}
    Argument(Value* variable) : variable_(variable) {}

    bool byReference() const { return variable_ != nullptr; }
    const Value& value() const { return variable_ ? *variable_ : value_; }
    /// Stores what the called object put into the variable. Only for arguments by reference.
    void assign(Value value) const { *variable_ = std::move(value); }

  private:
    Value value_;
    Value* variable_ = nullptr;
};

/// An object of another program (the CAD host, ADO). Every operation is one round trip to it and throws
/// RuntimeError with the HRESULT and the object's own error text when it fails.
class AutomationObject {
  public:
    virtual ~AutomationObject() = default;

    virtual Value get(const Member& member) = 0;
    virtual void put(const Member& member, const Value& value) = 0;
    /// Calls a method, or reads a property with arguments.
    virtual Value call(const Member& member, std::span<const Argument> arguments) = 0;
    /// Asked between messages whether to go on.
    using GoOn = std::function<bool()>;
    /// All elements of a collection of this class, which is a literal, in the collection's order; as few
    /// messages as the class allows. Once `goOn` says no, those that came so far.
    virtual std::vector<ObjectPtr> enumerate(std::wstring_view className, const GoOn& goOn) = 0;

    Value call(const Member& member, std::initializer_list<Argument> arguments = {}) {
        return call(member, std::span(arguments.begin(), arguments.size()));
    }
    std::vector<ObjectPtr> enumerate(std::wstring_view className) {
        return enumerate(className, [] { return true; });
    }
};

/// Finds and makes the top objects.
class Automation {
  public:
    virtual ~Automation() = default;

    /// The running instance registered under the name; never starts one. Throws when there is none.
    virtual ObjectPtr running(std::wstring_view name) = 0;
    /// A new instance of the named class. Throws when it cannot be made.
    virtual ObjectPtr create(std::wstring_view name) = 0;
};

/// HRESULTs that the program tells apart.
namespace hresult {
inline constexpr std::int32_t unknownName = static_cast<std::int32_t>(0x80020006);
inline constexpr std::int32_t memberNotFound = static_cast<std::int32_t>(0x80020003);
inline constexpr std::int32_t disconnected = static_cast<std::int32_t>(0x80010108);
inline constexpr std::int32_t objectNotConnected = static_cast<std::int32_t>(0x800401FD);
inline constexpr std::int32_t serverUnavailable = static_cast<std::int32_t>(0x800706BA);
inline constexpr std::int32_t callFailed = static_cast<std::int32_t>(0x800706BE);
inline constexpr std::int32_t callFailedNotExecuted = static_cast<std::int32_t>(0x800706BF);
inline constexpr std::int32_t serverDied = static_cast<std::int32_t>(0x80010007);
inline constexpr std::int32_t callCanceled = static_cast<std::int32_t>(0x80010002);
inline constexpr std::int32_t callRejected = static_cast<std::int32_t>(0x80010001);
inline constexpr std::int32_t retryLater = static_cast<std::int32_t>(0x8001010A);
inline constexpr std::int32_t cannotCallOut = static_cast<std::int32_t>(0x80010005);
}  // namespace hresult

/// True for the errors that mean that the other program, or the document behind the object, is gone.
bool isGone(const RuntimeError& error);
/// True where the call was not taken and not carried out: the other program refuses it, the user has given up
/// waiting for it in this event, or another call is still under way.
bool isRefused(const RuntimeError& error);
/// True for the errors after which nobody knows whether the call was carried out: it was taken, and then the
/// user gave up waiting for the answer or the other program went.
bool isAnswerLost(const RuntimeError& error);
/// True where the other program is there and does not answer: refused, or waiting given up.
bool isNotAnswering(const RuntimeError& error);
/// Errors after which asking on is of no use in this event: the other program is gone or does not answer.
bool isSilence(const RuntimeError& error);

}  // namespace blattwart
