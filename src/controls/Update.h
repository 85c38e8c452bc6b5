#pragma once

namespace blattwart {

/// Brackets an update of a tree or list for the length of a scope.
template <class View>
class Update {
  public:
    explicit Update(View& view) : view_(view) { view_.BeginUpdate(); }
    ~Update() { view_.EndUpdate(); }
    Update(const Update&) = delete;
    Update& operator=(const Update&) = delete;

  private:
    View& view_;
};

}  // namespace blattwart
