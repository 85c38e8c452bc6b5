#pragma once

#include "demo/object/DispatchObject.h"

namespace demo::ado {

inline constexpr std::int32_t defaultMember = 0;
/// Answered by `allElements`, never by `invoke`.
inline constexpr std::int32_t newEnumMember = -4;

struct MemberName {
    std::wstring_view name;
    std::int32_t id;
};

bool equalIgnoringCase(std::wstring_view a, std::wstring_view b);

using Arguments = std::span<const blattwart::Argument>;

/// The argument at a position; empty when the caller left it out.
blattwart::Value argumentAt(Arguments arguments, std::size_t position);
/// A whole number among the arguments, `preset` when it was left out.
std::int32_t numberAt(Arguments arguments, std::size_t position, std::int32_t preset);
std::wstring textAt(Arguments arguments, std::size_t position);

/// What the objects of the stand-in have in common.
class AdoObject : public DispatchObject {
  public:
    std::optional<std::int32_t> memberId(std::wstring_view name) const final;
    /// Throws: only `Fields` is a collection.
    std::vector<blattwart::ObjectPtr> allElements() override;

  protected:
    virtual std::span<const MemberName> members() const = 0;
};

/// For members that cannot be written. Throws RuntimeError for a put.
void requireRead(Access access);

}  // namespace demo::ado
