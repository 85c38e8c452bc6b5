#include "support/TracedAutomation.h"

#include <algorithm>

namespace blattwart::test {

namespace {

using TracePtr = std::shared_ptr<TracedAutomation::Trace>;

std::wstring shown(const Value& value) {
    return std::visit(
        [](const auto& content) -> std::wstring {
            using Content = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<Content, std::wstring>) {
                return L'"' + content + L'"';
            } else if constexpr (std::is_same_v<Content, bool>) {
                return content ? L"true" : L"false";
            } else if constexpr (std::is_arithmetic_v<Content>) {
                return std::to_wstring(content);
            } else if constexpr (std::is_same_v<Content, ObjectPtr>) {
                return L"object";
            } else {
                return L"...";
            }
        },
        value.storage());
}

std::wstring nameOf(const Member& member) {
    return std::wstring(member.className) + L"." + std::wstring(member.name);
}

class TracedObject : public AutomationObject {
  public:
    TracedObject(ObjectPtr inner, TracePtr trace) : inner_(std::move(inner)), trace_(std::move(trace)) {}

    Value get(const Member& member) override {
        trace_->enter(nameOf(member));
        return wrapped(inner_->get(member));
    }

    void put(const Member& member, const Value& value) override {
        trace_->enter(nameOf(member) + L" = " + shown(value));
        inner_->put(member, unwrapped(value));
    }

    Value call(const Member& member, std::span<const Argument> arguments) override {
        std::wstring line = nameOf(member) + L"(";
        std::vector<Argument> passed;
        for (const Argument& argument : arguments) {
            line += (passed.empty() ? L"" : L", ") + shown(argument.value());
            passed.push_back(argument.byReference() ? argument : Argument(unwrapped(argument.value())));
        }
        trace_->enter(line + L")");
        return wrapped(inner_->call(member, passed));
    }

    std::vector<ObjectPtr> enumerate() override {
        trace_->enter(L"enumerate");
        std::vector<ObjectPtr> elements = inner_->enumerate();
        for (ObjectPtr& element : elements) element = std::make_shared<TracedObject>(element, trace_);
        return elements;
    }

  private:
    Value wrapped(const Value& value) const {
        const auto* object = value.as<ObjectPtr>();
        if (!object || !*object) return value;
        return ObjectPtr(std::make_shared<TracedObject>(*object, trace_));
    }

    static Value unwrapped(const Value& value) {
        const auto* object = value.as<ObjectPtr>();
        const auto traced = object ? std::dynamic_pointer_cast<TracedObject>(*object) : nullptr;
        return traced ? Value(traced->inner_) : value;
    }

    ObjectPtr inner_;
    TracePtr trace_;
};

}  // namespace

TracedAutomation::TracedAutomation(Source create, Source running)
    : create_(std::move(create)), running_(std::move(running)) {}

std::size_t TracedAutomation::heldObjects() const {
    return topObjects_.size() - static_cast<std::size_t>(std::ranges::count_if(
                                    topObjects_, [](const auto& o) { return o.expired(); }));
}

void TracedAutomation::Trace::enter(std::wstring line) {
    log.push_back(std::move(line));
    if (calls.fails()) throw RuntimeError(static_cast<std::int32_t>(0x80004005), L"Unbekannter Fehler");
}

ObjectPtr TracedAutomation::top(const Source& source, const wchar_t* operation, std::wstring_view name) {
    trace_->enter(std::wstring(operation) + L" " + std::wstring(name));
    if (!source) throw RuntimeError(static_cast<std::int32_t>(0x800401E3), L"Vorgang nicht verfügbar");
    ObjectPtr object = std::make_shared<TracedObject>(source(name), trace_);
    topObjects_.push_back(object);
    return object;
}

}  // namespace blattwart::test
