#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace blattwart {

/// What a node of the navigator stands for, and an entry of its list.
enum class NodeKind { none, loadedDrawings, drawing, layout, library, libraryFile };

/// The kind as it stands in keys and settings: "A" for the root of the loaded drawings, "Z" for a drawing,
/// "L" for a layout, "B" for the root of the library, "D" for a template; "" for none.
std::wstring kindLetter(NodeKind kind);

/// Key of a node: its kind and, but for the roots, the number of the record behind it. Shown to the outside
/// as "A", "B", "Z7", "L12", "D31".
class NodeKey {
  public:
    NodeKey() = default;
    explicit NodeKey(NodeKind kind, std::int32_t number = 0) : kind_(kind), number_(number) {}
    /// Of the kind none where the text is no key.
    static NodeKey parse(std::wstring_view text);

    NodeKind kind() const { return kind_; }
    /// 0 for a root, and for the placeholder of a template that is being named.
    std::int32_t number() const { return number_; }
    std::wstring text() const;
    bool isRoot() const { return kind_ == NodeKind::loadedDrawings || kind_ == NodeKind::library; }

  private:
    NodeKind kind_ = NodeKind::none;
    std::int32_t number_ = 0;
};

}  // namespace blattwart
