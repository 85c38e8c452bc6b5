#include "demo/host/CallRecorder.h"

#include <algorithm>
#include <map>
#include <optional>

#include "demo/host/HostError.h"

namespace demo {

using blattwart::Argument;
using blattwart::AutomationObject;
using blattwart::Member;
using blattwart::ObjectPtr;
using blattwart::RuntimeError;
using blattwart::Value;
using blattwart::ValueArray;

namespace {

constexpr std::wstring_view hostPrefix = L"AutoCAD.";

}  // namespace

struct CallRecorder::State {
    /// One instance of the host, from its start to its end; each of its objects holds it.
    struct Instance {
        bool gone = false;
    };
    using InstancePtr = std::shared_ptr<Instance>;

    std::vector<RecordedCall> calls;
    std::map<std::pair<std::size_t, Moment>, RuntimeError> failures;
    std::optional<std::pair<std::size_t, Moment>> goneFrom;
    std::optional<RuntimeError> refusal;
    InstancePtr host = std::make_shared<Instance>();
    std::vector<std::weak_ptr<Instance>> ended;
    std::function<void(std::size_t)> beforeCall;

    /// Notes a call to an object of the instance, null for other programs. Throws when it is to fail.
    std::size_t enter(RecordedCall call, const InstancePtr& instance) {
        call.ofHost = instance != nullptr;
        calls.push_back(std::move(call));
        const std::size_t number = calls.size();
        if (beforeCall) beforeCall(number);
        disturb(number, Moment::before, instance);
        return number;
    }

    void disturb(std::size_t number, Moment moment, const InstancePtr& instance) {
        const std::pair now(number, moment);
        if (const auto failure = failures.find(now); failure != failures.end())
            throw RuntimeError(failure->second);
        if (refusal && instance && moment == Moment::before) throw RuntimeError(*refusal);
        if (goneFrom && now >= *goneFrom) host->gone = true;
        if (!instance || !instance->gone) return;
        switch (calls[number - 1].kind) {
            case RecordedCall::Kind::running:
                throw RuntimeError(hostError::notRunning, L"Vorgang nicht verfügbar");
            case RecordedCall::Kind::create:
                throw RuntimeError(hostError::cannotStart, L"Starten des Servers fehlgeschlagen");
            default:
                throw RuntimeError(blattwart::hresult::serverUnavailable,
                                   L"Der RPC-Server ist nicht verfügbar.");
        }
    }
};

namespace {

using State = CallRecorder::State;
using StatePtr = std::shared_ptr<State>;

class RecordedObject final : public AutomationObject {
  public:
    RecordedObject(ObjectPtr inner, StatePtr state, State::InstancePtr instance)
        : inner_(std::move(inner)), state_(std::move(state)), instance_(std::move(instance)) {}

    Value get(const Member& member) override {
        const std::size_t number = enter(RecordedCall::Kind::get, member);
        const Value result = inner_->get(member);
        leave(number);
        return wrap(result);
    }

    void put(const Member& member, const Value& value) override {
        const Argument argument(value);
        const std::size_t number = enter(RecordedCall::Kind::put, member, std::span(&argument, 1));
        inner_->put(member, unwrap(value));
        leave(number);
    }

    Value call(const Member& member, std::span<const Argument> arguments) override {
        const std::size_t number = enter(RecordedCall::Kind::call, member, arguments);
        std::vector<Value> values;
        for (const Argument& argument : arguments) values.push_back(unwrap(argument.value()));
        std::vector<Argument> passed;
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            passed.push_back(arguments[i].byReference() ? Argument(&values[i]) : Argument(values[i]));
        }
        const Value result = inner_->call(member, std::span<const Argument>(passed));
        leave(number);
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            if (arguments[i].byReference()) arguments[i].assign(wrap(std::move(values[i])));
        }
        return wrap(result);
    }

    std::vector<ObjectPtr> enumerate(std::wstring_view className, const GoOn& goOn) override {
        const std::size_t number = enter(RecordedCall::Kind::enumerate, {className, L""});
        std::vector<ObjectPtr> elements = inner_->enumerate(className, goOn);
        leave(number);
        for (ObjectPtr& element : elements) element = wrapObject(std::move(element));
        return elements;
    }

  private:
    std::size_t enter(RecordedCall::Kind kind, const Member& member,
                      std::span<const Argument> arguments = {}) {
        RecordedCall call{kind, std::wstring(member.className), std::wstring(member.name), false, {}};
        for (const Argument& argument : arguments) {
            const Value& value = argument.value();
            call.arguments.push_back(value.as<ObjectPtr>() || value.as<ValueArray>() ? Value() : value);
        }
        return state_->enter(std::move(call), instance_);
    }

    void leave(std::size_t number) { state_->disturb(number, Moment::after, instance_); }

    ObjectPtr wrapObject(ObjectPtr object) const {
        if (!object) return nullptr;
        return std::make_shared<RecordedObject>(std::move(object), state_, instance_);
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
    State::InstancePtr instance_;
};

std::wstring textOf(const RecordedCall& call) {
    const std::wstring member = call.className + L"." + call.name;
    switch (call.kind) {
        case RecordedCall::Kind::running:
            return L"running " + call.className;
        case RecordedCall::Kind::create:
            return L"create " + call.className;
        case RecordedCall::Kind::get:
            return L"get " + member;
        case RecordedCall::Kind::put:
            return L"put " + member;
        case RecordedCall::Kind::call:
            return L"call " + member;
        case RecordedCall::Kind::other:
            return call.name;
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

void CallRecorder::failAt(std::size_t n, RuntimeError error, Moment moment) {
    state_->failures.insert_or_assign({n, moment}, std::move(error));
}

void CallRecorder::goneFrom(std::size_t n, Moment moment) {
    state_->goneFrom.emplace(n, moment);
}

void CallRecorder::refuse(RuntimeError error) {
    state_->refusal = std::move(error);
}

void CallRecorder::heal() {
    state_->refusal.reset();
    state_->failures.clear();
    state_->goneFrom.reset();
    if (state_->host->gone) hostEnded();
}

void CallRecorder::hostEnded() {
    state_->ended.push_back(state_->host);
    state_->host = std::make_shared<State::Instance>();
}

std::size_t CallRecorder::deadObjects() const {
    std::size_t held = 0;
    for (const auto& instance : state_->ended) held += static_cast<std::size_t>(instance.use_count());
    return held;
}

bool CallRecorder::strikes(std::wstring_view name) {
    return !blattwart::ignoringErrors([&] {
        state_->enter({RecordedCall::Kind::other, L"", std::wstring(name), false, {}}, nullptr);
    });
}

void CallRecorder::beforeCall(std::function<void(std::size_t)> action) {
    state_->beforeCall = std::move(action);
}

ObjectPtr CallRecorder::running(std::wstring_view name) {
    return top(RecordedCall::Kind::running, name);
}

ObjectPtr CallRecorder::create(std::wstring_view name) {
    return top(RecordedCall::Kind::create, name);
}

ObjectPtr CallRecorder::top(RecordedCall::Kind kind, std::wstring_view name) {
    const State::InstancePtr instance = name.starts_with(hostPrefix) ? state_->host : nullptr;
    const std::size_t number = state_->enter({kind, std::wstring(name), L"", false, {}}, instance);
    ObjectPtr object = kind == RecordedCall::Kind::create ? inner_.create(name) : inner_.running(name);
    state_->disturb(number, Moment::after, instance);
    return std::make_shared<RecordedObject>(std::move(object), state_, instance);
}

}  // namespace demo
