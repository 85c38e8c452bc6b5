#pragma once

#include <memory>
#include <string>

#include "controls/Control.h"
#include "platform/EncodedPicture.h"

namespace blattwart {

/// A picture, shown as large as the room below a list's rows allows, with its proportions.
class PictureBox : public Control {
  public:
    using Picture = std::shared_ptr<const EncodedPicture>;

    /// Null for none.
    const Picture& picture() const { return picture_; }
    /// What it is called where it cannot be seen.
    const std::wstring& name() const { return name_; }
    void show(Picture picture, std::wstring name) {
        change(name_, std::move(name));
        change(picture_, std::move(picture));
    }

  private:
    Picture picture_;
    std::wstring name_;
};

}  // namespace blattwart
