#include "autocad/LayoutMembers.h"

#include <algorithm>

#include "autocad/PageSetupHidden.h"

namespace blattwart {

namespace {

bool isDoomed(const std::wstring& handle, const std::vector<DoomedLayout>& doomed) {
    return std::ranges::find(doomed, handle, &DoomedLayout::handle) != doomed.end();
}

}  // namespace

LayoutMembers::LayoutsByHandle LayoutMembers::paperLayouts(const host::Layouts& layouts) {
    LayoutsByHandle paper;
    for (const host::Layout& layout : layouts.all())
        if (!layout.ModelType()) paper.emplace(layout.Handle(), layout);
    return paper;
}

void LayoutMembers::Delete(const host::Document& document, const std::vector<DoomedLayout>& doomed) {
    try {
        autoCAD_.activate(document);
        const PageSetupHidden hidden(autoCAD_, document);
        deleteEach(document, doomed);
    } catch (const RuntimeError& error) {
        tellFailure(error, false, L"Die Layouts können nicht gelöscht werden!", L"");
    }
}

void LayoutMembers::deleteEach(const host::Document& document, const std::vector<DoomedLayout>& doomed) {
    const host::Layouts layouts = document.Layouts();
    const LayoutsByHandle paper = paperLayouts(layouts);
    auto survivor =
        std::ranges::find_if(paper, [&](const auto& each) { return !isDoomed(each.first, doomed); });
    // Where all are meant the last one stays.
    for (std::size_t i = doomed.size(); i > 0 && survivor == paper.end(); --i)
        survivor = paper.find(doomed[i - 1].handle);
    for (const DoomedLayout& each : doomed) {
        const auto found = paper.find(each.handle);
        if (found == paper.end()) continue;
        // With that of model space.
        if (found == survivor || layouts.Count() <= 2)
            return platform_.messages.warn(L"Das letzte Layout einer Zeichnung kann nicht gelöscht werden: " +
                                           each.name);
        bool changing = false;
        try {
            if (document.ActiveLayout().Handle() == each.handle) document.putActiveLayout(survivor->second);
            changing = true;
            found->second.Delete();
        } catch (const RuntimeError& error) {
            return tellFailure(error, changing, L"Das Layout kann nicht gelöscht werden: " + each.name,
                               L"Ob das Layout gelöscht wurde, ist nicht bekannt: " + each.name);
        }
    }
    std::wstring left;
    const LayoutsByHandle after = paperLayouts(layouts);
    for (const DoomedLayout& each : doomed)
        if (after.contains(each.handle)) left += L"\n" + each.name;
    if (!left.empty()) platform_.messages.warn(L"Es wurde nicht gelöscht:\n" + left);
}

bool LayoutMembers::Create(const host::Document& document, const std::wstring& name) {
    bool adding = false;
    host::Layout made;
    try {
        autoCAD_.activate(document);
        const PageSetupHidden hidden(autoCAD_, document);
        const host::Layouts layouts = document.Layouts();
        adding = true;
        made = layouts.Add(name);
        document.putActiveLayout(made);
        return true;
    } catch (const RuntimeError& error) {
        if (made) {
            platform_.messages.warn(L"Das Layout ist erstellt, aber nicht das aktuelle: " + name);
            return true;
        }
        tellFailure(error, adding, L"Das Layout kann nicht erstellt werden: " + name,
                    L"Ob das Layout erstellt wurde, ist nicht bekannt: " + name);
        return adding && isAnswerLost(error);
    }
}

void LayoutMembers::tellFailure(const RuntimeError& error, bool changing, const std::wstring& refused,
                                const std::wstring& unknown) {
    if (changing && isAnswerLost(error)) return platform_.messages.warn(unknown);
    if (isNotAnswering(error)) return autoCAD_.tellNoAnswer();
    platform_.messages.warn(refused + L"\n\n" + error.description());
}

}  // namespace blattwart
