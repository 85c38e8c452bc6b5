#include "session/Least.h"

namespace blattwart::bench {

namespace {

/// A property or a method; an object that comes back is held and needs no message of its own.
constexpr int fact = 1;
/// Its id, once per class.
constexpr int memberId = 1;
/// The enumerator, its interface and its elements; COM gives the references to both interfaces back apart.
constexpr int enumeration = 3 + 2;
/// From the application to the collection of files to the folder.
constexpr int templateFolder = 3 * fact;
constexpr int openDocuments = fact + enumeration;
constexpr int activeLayoutName = 2 * fact;

int namesOfLayouts(int layouts) {
    constexpr int modelSpace = 1;
    return fact + enumeration + (layouts + modelSpace) * fact;
}

int fullNames(int drawings) {
    return drawings * fact;
}

int treeOf(int drawings, int layouts) {
    constexpr int activeName = fact;
    return activeName + openDocuments + fullNames(drawings) + drawings * namesOfLayouts(layouts) +
           activeLayoutName;
}

/// The object itself, plotter, paper in two steps, orientation, plot style.
int layoutList(int layouts) {
    constexpr int collection = fact;
    return collection + layouts * 6 * fact;
}

/// Of the active layout: collection and object, plotter, paper in two steps and in millimetres, orientation,
/// plot style and area, then the kind and the data of its one object, a viewport.
constexpr int layoutDetails = 2 * fact + 7 * fact + fact + enumeration + 2 * fact;

}  // namespace

int leastForStart(int drawings, int layouts) {
    // Asked whether it runs, and given back at once, then found again to stay: each time a reference and an
    // interface, once the two taken back.
    constexpr int attach = 2 + 2 + 2;
    constexpr int activeDocument = fact;
    constexpr int members = 23 * memberId;
    constexpr int statusLine = fact;
    const int objectIds = drawings * layouts * fact;
    // Whether the host gives several elements at once is not known yet when it gives the only drawing.
    const int oneElementMore = drawings == 1 ? 1 : 0;
    return oneElementMore + attach + activeDocument + members + 2 * templateFolder +
           treeOf(drawings, layouts) + objectIds + layoutDetails + statusLine;
}

int leastForRefresh(int drawings, int layouts) {
    return templateFolder + treeOf(drawings, layouts);
}

int leastForPlanList(int drawings, int layouts) {
    // Current layout, changes, whether it is read only; the collection and the name of model space.
    constexpr int ofDrawing = 3 * fact + fact + enumeration + fact;
    // Name, number, plotter, paper, plot style. Readable names of papers are asked for once.
    constexpr int ofLayout = 5 * fact;
    return openDocuments + fullNames(drawings) + drawings * (ofDrawing + layouts * ofLayout);
}

int leastForClick(int drawings, int layouts) {
    constexpr int statusLine = fact;
    return openDocuments + fullNames(drawings) + layoutList(layouts) + activeLayoutName + statusLine;
}

}  // namespace blattwart::bench
