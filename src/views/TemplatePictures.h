#pragma once

#include <cstdint>
#include <list>
#include <string>

#include "controls/PictureBox.h"
#include "platform/Platform.h"

namespace blattwart {

/// Shows the picture that the selected template's file carries. The worker reads the file, so that nobody
/// waits for it; what was read is shown at once the next time and replaced when the file is another one
/// since.
class TemplatePictures {
  public:
    TemplatePictures(PictureBox& box, Platform& platform)
        : box_(box), files_(platform.files), worker_(platform.worker) {}

    /// The file whose picture is wanted from now on; "" for none.
    void show(const std::wstring& file);

  private:
    /// A file at a time, and its picture; null when it has none.
    struct Known {
        std::wstring file;
        std::uint64_t size = 0;
        std::uint64_t written = 0;
        PictureBox::Picture picture;
    };
    struct Reading;

    static void read(Files& files, Reading& reading);
    void begin();
    void finish(const Reading& reading);
    /// Null when nothing is known of the file; else it is the last to be forgotten.
    const Known* known(const std::wstring& file);
    void keep(const Known& known);
    void showKnown();

    PictureBox& box_;
    Files& files_;
    Worker& worker_;
    std::list<Known> known_;  // the one used last comes first
    std::wstring wanted_;
    bool reading_ = false;
};

}  // namespace blattwart
