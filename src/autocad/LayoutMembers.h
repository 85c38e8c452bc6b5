#pragma once

#include <map>
#include <string>
#include <vector>

#include "autocad/basAutoCAD.h"

namespace blattwart {

/// A layout that is to be deleted, whatever it is called by then.
struct DoomedLayout {
    std::wstring handle;
    std::wstring name;  ///< for messages
};

/// Deletes and creates layouts by the members of the host's object model, where there is no macro project.
/// While it works, layouts that are shown for the first time open no page setup.
class LayoutMembers {
  public:
    LayoutMembers(basAutoCAD& autoCAD, Platform& platform) : autoCAD_(autoCAD), platform_(platform) {}

    /// Deletes those that are still there, each only while the document keeps another paper layout, which
    /// becomes the current one where it must. A failure ends it and is told, and so is what is still there
    /// afterwards.
    void Delete(const host::Document& document, const std::vector<DoomedLayout>& doomed);
    /// Creates a layout, which becomes the current one. Returns false when nothing was created and the user
    /// may try again; he has been told what went wrong.
    bool Create(const host::Document& document, const std::wstring& name);

  private:
    using LayoutsByHandle = std::map<std::wstring, host::Layout>;

    /// Those of paper, two messages each, and one for Model.
    static LayoutsByHandle paperLayouts(const host::Layouts& layouts);
    void deleteEach(const host::Document& document, const std::vector<DoomedLayout>& doomed);
    /// `changing`: the call that failed would have changed something.
    void tellFailure(const RuntimeError& error, bool changing, const std::wstring& refused,
                     const std::wstring& unknown);

    basAutoCAD& autoCAD_;
    Platform& platform_;
};

}  // namespace blattwart
