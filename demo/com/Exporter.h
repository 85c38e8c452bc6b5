#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "demo/object/DispatchObject.h"
#include "win32/com/ComValue.h"

namespace demo {

using blattwart::ComPtr;
using blattwart::ObjectPtr;

class ExportedObject;

/// How enumerators answer a request for elements: with as many as asked for; with one and that fewer are
/// left; with that all is well also when nothing is left; not at all; with the first ones again after the
/// last.
enum class EnumeratorManner { asAsked, single, neverSaysEnd, none, endless };

/// What came in from other processes so far.
struct WireCounters {
    std::uint32_t idLookups = 0;
    std::uint32_t calls = 0;     ///< carried out
    std::uint32_t nexts = 0;     ///< requests for elements of an enumeration
    std::uint32_t refused = 0;   ///< refused without being carried out
    std::uint32_t objects = 0;   ///< objects handed out
    std::uint32_t released = 0;  ///< objects that nobody outside holds any more
};

/// Offers objects of a stand-in through IDispatch. The same object always has the same identity outside as
/// long as somebody there holds it. All of it belongs to one single-threaded apartment. Made by
/// std::make_shared.
class Exporter : public blattwart::ObjectBorder, public std::enable_shared_from_this<Exporter> {
  public:
    /// Asked before each call that comes in; anything but S_OK is the answer and the call is not carried out.
    using Admission = std::function<HRESULT()>;
    /// Told of each admitted call when it was carried out and is not answered yet.
    using Completion = std::function<void()>;

    /// `source` is what exceptions name as their origin.
    explicit Exporter(std::wstring source, Admission admission = {}, Completion completion = {})
        : source_(std::move(source)), admission_(std::move(admission)), completion_(std::move(completion)) {}

    ComPtr<IDispatch> toDispatch(const ObjectPtr& object) override;
    /// Objects made here only; others are a type mismatch.
    ObjectPtr fromDispatch(IDispatch* dispatch) override;

    /// Told after each call that was carried out.
    std::function<void()> afterCall;

    EnumeratorManner enumeratorManner = EnumeratorManner::asAsked;

    const std::wstring& source() const { return source_; }
    HRESULT admit();
    void complete() const {
        if (completion_) completion_();
    }
    const WireCounters& counters() const { return counters_; }
    WireCounters& counters() { return counters_; }

  private:
    friend class ExportedObject;
    void forget(const blattwart::AutomationObject* object);

    std::wstring source_;
    Admission admission_;
    Completion completion_;
    WireCounters counters_;
    std::map<const blattwart::AutomationObject*, ExportedObject*> alive_;
};

}  // namespace demo
