#pragma once

#include <concepts>

#include "demo/host/Host.h"
#include "demo/object/DispatchObject.h"

namespace demo {

/// The object of the class for what there is once in a document or in the host, or for what has this handle.
template <class Part, std::same_as<Handle>... Name>
std::shared_ptr<Part> heldObject(const HostPtr& host, const DocumentPtr& document, Name... handle) {
    const auto make = [&] { return std::make_shared<Part>(host, document, handle...); };
    return host->heldObjects().get<Part>(document.get(), (Handle{0} + ... + handle), make);
}

/// What all objects of the host have in common: the host they belong to, perhaps a document, and the reading
/// of arguments, which throws the automation's failures.
class HostPart : public DispatchObject {
  public:
    explicit HostPart(HostPtr host, DocumentPtr document = nullptr)
        : host_(std::move(host)), document_(std::move(document)) {}

    std::vector<blattwart::ObjectPtr> allElements() override;

  protected:
    Host& host() const { return *host_; }
    const HostPtr& hostPtr() const { return host_; }
    OpenDocument& document() const { return *document_; }
    const DocumentPtr& documentPtr() const { return document_; }
    const HostOptions& options() const { return host_->options(); }

    /// Throws when the host has ended, is busy, or the object's document was closed.
    virtual void checkReachable() const;
    blattwart::RuntimeError failure(std::int32_t number) const;

    std::wstring textOf(const blattwart::Value& value) const;
    std::int64_t numberOf(const blattwart::Value& value) const;
    double doubleOf(const blattwart::Value& value) const;
    bool boolOf(const blattwart::Value& value) const;
    /// A window handle or object id as this host gives them.
    blattwart::Value wideOrNarrow(std::int64_t number) const;

    /// An object of the same document, or of the host.
    template <class Part, class... Name>
    blattwart::ObjectPtr make(Name... name) const {
        return heldObject<Part>(host_, document_, name...);
    }

  private:
    HostPtr host_;
    DocumentPtr document_;
};

/// Finds an element of a collection by the index a client gave: a number from 0, or a name.
struct CollectionIndex {
    std::optional<std::int64_t> position;
    std::wstring name;
};
/// Throws type mismatch for anything that is neither.
CollectionIndex collectionIndex(const blattwart::Value& value, Language language);

}  // namespace demo
