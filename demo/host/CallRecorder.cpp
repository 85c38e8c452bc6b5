#include "host/CallRecorder.h"

#include <algorithm>

namespace demo {

using blattwart::Argument;
using blattwart::AutomationObject;
using blattwart::Member;
using blattwart::ObjectPtr;
using blattwart::RuntimeError;
using blattwart::Value;
using blattwart::ValueArray;

namespace {

constexpr std::wstring_view hostName = L"AutoCAD.";
constexpr auto notRunning = static_cast<std::int32_t>(0x800401E3);
constexpr auto cannotStart = static_cast<std::int32_t>(0x80080005);

}  // namespace

struct CallRecorder::State {
    std::vector<RecordedCall> calls;
    std::optional<std::pair<std::size_t, RuntimeError>> failure;
    std::optional<std::size_t> goneFrom;
    std::function<void(std::size_t)> beforeCall;

    /// Notes a call; throws when it is to fail.
    void enter(RecordedCall call, bool ofHost) {
        const RecordedCall::Kind kind = call.kind;
        calls.push_back(std::move(call));
        if (beforeCall) beforeCall(calls.size());
        if (failure && failure->first == calls.size()) throw RuntimeError(failure->second);
        if (!ofHost || !goneFrom || calls.size() < *goneFrom) return;
        if (kind == RecordedCall::Kind::running) throw RuntimeError(notRunning, L"Vorgang nicht verfügbar");
        if (kind == RecordedCall::Kind::create)
            throw RuntimeError(cannotStart, L"Starten des Servers fehlgeschlagen");
        throw RuntimeError(blattwart::hresult::serverUnavailable, L"Der RPC-Server ist nicht verfügbar.");
    }
};

namespace {

using State = CallRecorder::State;
using StatePtr = std::shared_ptr<State>;

class RecordedObject final : public AutomationObject {
  public:
    RecordedObject(ObjectPtr inner, StatePtr state, bool ofHost)
        : inner_(std::move(inner)), state_(std::move(state)), ofHost_(ofHost) {}

    Value get(const Member& member) override {
        enter(RecordedCall::Kind::get, member);
        return wrap(inner_->get(member));
    }

    void put(const Member& member, const Value& value) override {
        enter(RecordedCall::Kind::put, member);
        inner_->put(member, unwrap(value));
    }

    Value call(const Member& member, std::span<const Argument> arguments) override {
        enter(RecordedCall::Kind::call, member);
        std::vector<Value> values;
        for (const Argument& argument : arguments) values.push_back(unwrap(argument.value()));
        std::vector<Argument> passed;
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            passed.push_back(arguments[i].byReference() ? Argument(&values[i]) : Argument(values[i]));
        }
        const Value result = inner_->call(member, std::span<const Argument>(passed));
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            if (arguments[i].byReference()) arguments[i].assign(wrap(std::move(values[i])));
        }
        return wrap(result);
    }

    std::vector<ObjectPtr> enumerate() override {
        enter(RecordedCall::Kind::enumerate, {L"", L""});
        std::vector<ObjectPtr> elements = inner_->enumerate();
        for (ObjectPtr& element : elements) element = wrapObject(std::move(element));
        return elements;
    }

  private:
    void enter(RecordedCall::Kind kind, const Member& member) {
        state_->enter({kind, std::wstring(member.className), std::wstring(member.name)}, ofHost_);
    }

    ObjectPtr wrapObject(ObjectPtr object) const {
        if (!object) return nullptr;
        return std::make_shared<RecordedObject>(std::move(object), state_, ofHost_);
    }

    Value wrap(Value value) const {
        if (const auto* object = value.as<ObjectPtr>()) return wrapObject(*object);
        if (const auto* array = value.as<ValueArray>()) {
            ValueArray wrapped;
            for (const Value& element : *array) wrapped.push_back(wrap(element));
            return wrapped;
        }
        return value;
    }

    static Value unwrap(const Value& value) {
        if (const auto* object = value.as<ObjectPtr>()) {
            const auto recorded = std::dynamic_pointer_cast<RecordedObject>(*object);
            return recorded ? recorded->inner_ : *object;
        }
        if (const auto* array = value.as<ValueArray>()) {
            ValueArray unwrapped;
            for (const Value& element : *array) unwrapped.push_back(unwrap(element));
            return unwrapped;
        }
        return value;
    }

    ObjectPtr inner_;
    StatePtr state_;
    bool ofHost_;
};

std::wstring textOf(const RecordedCall& call) {
    switch (call.kind) {
        case RecordedCall::Kind::running:
            return L"running " + call.className;
        case RecordedCall::Kind::create:
            return L"create " + call.className;
        case RecordedCall::Kind::get:
            return L"get " + call.name;
        case RecordedCall::Kind::put:
            return L"put " + call.name;
        case RecordedCall::Kind::call:
            return L"call " + call.name;
        case RecordedCall::Kind::enumerate:
            break;
    }
    return L"enumerate";
}

}  // namespace

CallRecorder::CallRecorder(blattwart::Automation& inner) : inner_(inner), state_(std::make_shared<State>()) {}

const std::vector<RecordedCall>& CallRecorder::calls() const {
    return state_->calls;
}

std::vector<std::wstring> CallRecorder::list() const {
    std::vector<std::wstring> texts;
    for (const RecordedCall& call : state_->calls) texts.push_back(textOf(call));
    return texts;
}

std::size_t CallRecorder::count(std::wstring_view name) const {
    return static_cast<std::size_t>(std::ranges::count(state_->calls, name, &RecordedCall::name));
}

void CallRecorder::clear() {
    state_->calls.clear();
}

void CallRecorder::failAt(std::size_t n, RuntimeError error) {
    state_->failure.emplace(n, std::move(error));
}

void CallRecorder::goneFrom(std::size_t n) {
    state_->goneFrom = n;
}

void CallRecorder::heal() {
    state_->failure.reset();
    state_->goneFrom.reset();
}

void CallRecorder::beforeCall(std::function<void(std::size_t)> action) {
    state_->beforeCall = std::move(action);
}

ObjectPtr CallRecorder::running(std::wstring_view name) {
    const bool ofHost = name.starts_with(hostName);
    state_->enter({RecordedCall::Kind::running, std::wstring(name), L""}, ofHost);
    return std::make_shared<RecordedObject>(inner_.running(name), state_, ofHost);
}

ObjectPtr CallRecorder::create(std::wstring_view name) {
    const bool ofHost = name.starts_with(hostName);
    state_->enter({RecordedCall::Kind::create, std::wstring(name), L""}, ofHost);
    return std::make_shared<RecordedObject>(inner_.create(name), state_, ofHost);
}

}  // namespace demo
