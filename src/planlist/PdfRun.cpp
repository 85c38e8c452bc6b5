#include "planlist/PdfRun.h"

#include <algorithm>

#include "planlist/HostFacts.h"

namespace blattwart {

namespace {

constexpr const wchar_t* done = L"fertig";
constexpr const wchar_t* skipped = L"übersprungen";
constexpr const wchar_t* failedSheet = L"nicht geplottet: ";
constexpr const wchar_t* noAnswer = L"nicht geplottet: AutoCAD antwortet nicht";
constexpr std::size_t lengthOfEnd = 1024;

std::wstring aside(const std::wstring& file) {
    return file + L".alt";
}

bool holds(const std::vector<std::uint8_t>& bytes, std::string_view text) {
    return std::search(bytes.begin(), bytes.end(), text.begin(), text.end()) != bytes.end();
}

}  // namespace

bool isPdfDevice(std::wstring_view device, const Locale& locale) {
    const std::wstring name = locale.upperCase(device);
    return name.ends_with(L".PC3") && name.find(L"PDF") != std::wstring::npos;
}

void PdfRun::begin(const std::vector<PdfSheet>& sheets, bool replace) {
    std::vector<std::wstring> drawings;
    sheets_.clear();
    next_ = 0;
    results_.clear();
    for (const PdfSheet& sheet : sheets) {
        const PlanList::Place place = plan_.find(sheet.row);
        if (!place) continue;
        if (std::ranges::find(drawings, place.drawing->identity) == drawings.end())
            drawings.push_back(place.drawing->identity);
        results_[sheet.row] = L"";
    }
    for (const std::wstring& drawing : drawings)
        std::ranges::copy_if(sheets, std::back_inserter(sheets_), [&](const PdfSheet& sheet) {
            const PlanList::Place place = plan_.find(sheet.row);
            return place && place.drawing->identity == drawing;
        });
    replace_ = replace;
    entered_.clear();
    stopped_ = false;
    halted_.clear();
    check_ = {};
    phase_ = Phase::prepare;
}

bool PdfRun::step() {
    switch (phase_) {
        case Phase::prepare:
            prepare();
            break;
        case Phase::plot:
            plotNext();
            break;
        case Phase::await:
            look();
            break;
        case Phase::leave:
            restore_.leave();
            entered_.clear();
            phase_ = Phase::plot;
            break;
        case Phase::finish:
            finish();
            break;
        default:
            break;
    }
    return phase_ != Phase::idle;
}

void PdfRun::stop() {
    stopped_ = true;
    platform_.gate.endPatience();
}

void PdfRun::prepare() {
    std::vector<std::wstring> drawings;
    for (const PdfSheet& each : sheets_) {
        const std::wstring& drawing = plan_.find(each.row).drawing->identity;
        if (drawings.empty() || drawings.back() != drawing) drawings.push_back(drawing);
    }
    check_ = PlanWriteResult::of(reader_.check(drawings));
    if (check_.end != PlanWriteResult::End::done) {
        phase_ = Phase::idle;
        return;
    }
    try {
        restore_.begin();
        phase_ = Phase::plot;
    } catch (const RuntimeError& error) {
        halt(isSilence(error) ? noAnswer : failedSheet + error.description());
        phase_ = Phase::finish;
    }
}

void PdfRun::plotNext() {
    if (stopped_ && halted_.empty()) halt(L"angehalten");
    if (next_ == sheets_.size() || !halted_.empty()) {
        phase_ = Phase::finish;
        return;
    }
    const PlanList::Place place = plan_.find(sheet().row);
    if (place && !entered_.empty() && entered_ != place.drawing->identity) {
        phase_ = Phase::leave;
        return;
    }
    try {
        if (!place) {
            endSheet(L"nicht geplottet: das Layout gibt es nicht mehr");
        } else if (plot(place, sheet())) {
            plottedAt_ = Clock::now();
            look();
        }
    } catch (const RuntimeError& error) {
        failed(error);
    }
}

bool PdfRun::plot(const PlanList::Place& place, const PdfSheet& sheet) {
    if (!replace_ && platform_.files.exists(sheet.file)) {
        endSheet(std::wstring(skipped) + L": Datei vorhanden");
        return false;
    }
    enter(*place.drawing);
    if (restore_.document().GetVariable(L"CMDACTIVE") != 0) {
        halt(L"nicht geplottet: in AutoCAD läuft ein Befehl");
        return false;
    }
    // It may have been changed since it was read.
    if (!sheet.byPdfDevice && !isPdfDevice(place.row->layout.ConfigName(), platform_.locale)) {
        endSheet(L"nicht geplottet: Plotgerät ist kein PDF-Gerät");
        return false;
    }
    if (!setAside(sheet.file)) return false;
    restore_.show(*place.row);
    return plotToFile(sheet);
}

void PdfRun::enter(const PlanDrawing& drawing) {
    if (entered_ == drawing.identity) return;
    restore_.enter(drawing);
    entered_ = drawing.identity;
}

/// The host may refuse to replace a file, and what it writes must not be taken for what was there.
bool PdfRun::setAside(const std::wstring& file) {
    asideExists_ = false;
    if (!platform_.files.exists(file)) return true;
    if (platform_.files.exists(aside(file))) {
        endSheet(failedSheet + aside(file) + L" ist noch vorhanden");
        return false;
    }
    asideExists_ = ignoringErrors([&] { platform_.files.rename(file, aside(file)); });
    if (!asideExists_) endSheet(failedSheet + file + L" ist in einem anderen Programm geöffnet");
    return asideExists_;
}

bool PdfRun::plotToFile(const PdfSheet& sheet) {
    bool plotted = false;
    begun_ = true;
    try {
        const Gate::Patience patience(platform_.gate);
        plotted = restore_.plot().PlotToFile(sheet.file, sheet.byPdfDevice ? pdfDevice : L"");
    } catch (const RuntimeError& error) {
        // Where the answer is lost the file tells.
        if (!isAnswerLost(error)) throw;
        halted_ = noAnswer;
        return true;
    }
    if (!plotted) endSheet(L"nicht geplottet: AutoCAD hat keine Datei geschrieben");
    return plotted;
}

PdfRun::Written PdfRun::written() const {
    const std::wstring& file = sheet().file;
    Written found = Written::notYet;
    ignoringErrors([&] {
        if (!platform_.files.exists(file)) return;
        const std::unique_ptr<FileReader> reader = platform_.files.open(file);
        if (!reader) return;
        constexpr std::string_view beginning = "%PDF-";
        const std::vector<std::uint8_t> first = reader->read(0, beginning.size());
        if (first.size() < beginning.size()) return;
        if (!std::ranges::equal(first, beginning)) {
            found = Written::otherKind;
            return;
        }
        const std::uint64_t size = reader->size();
        const std::uint64_t end = size > lengthOfEnd ? size - lengthOfEnd : 0;
        if (holds(reader->read(end, lengthOfEnd), "%%EOF")) found = Written::complete;
    });
    return found;
}

void PdfRun::look() {
    const Written found = written();
    if (found == Written::complete) return endSheet(L"");
    if (found == Written::notYet && Clock::now() < plottedAt_ + patience_) {
        phase_ = Phase::await;
        return;
    }
    const bool there = platform_.files.exists(sheet().file);
    if (!halted_.empty()) return endSheet(halted_);
    endSheet(there ? L"nicht geplottet: AutoCAD hat keine PDF-Datei geschrieben"
                   : L"nicht geplottet: AutoCAD hat keine Datei geschrieben");
}

/// The next one comes; with "" this one was plotted. What was there before comes back where it was not.
void PdfRun::endSheet(const std::wstring& failure) {
    const PdfSheet& ended = sheet();
    std::wstring& result = results_[ended.row];
    result = failure.empty() ? done : failure;
    Files& files = platform_.files;
    const bool begun = std::exchange(begun_, false);
    if (begun && !failure.empty() && files.exists(ended.file))
        ignoringErrors([&] { files.remove(ended.file); });
    if (std::exchange(asideExists_, false)) {
        const bool cleared = ignoringErrors([&] {
            if (failure.empty()) {
                files.remove(aside(ended.file));
            } else {
                files.rename(aside(ended.file), ended.file);
            }
        });
        if (!cleared) result += L"; die vorige Datei heißt jetzt " + aside(ended.file);
    }
    ++next_;
    phase_ = Phase::plot;
    if (!halted_.empty()) halt(halted_);
}

void PdfRun::failed(const RuntimeError& error) {
    if (reader_.isClosed(error)) return endSheet(L"nicht geplottet: Zeichnung nicht mehr geöffnet");
    if (!isSilence(error)) return endSheet(failedSheet + error.description());
    halted_ = noAnswer;
    endSheet(noAnswer);
}

void PdfRun::halt(const std::wstring& result) {
    halted_ = result;
    for (; next_ < sheets_.size(); ++next_) results_[sheet().row] = result;
}

void PdfRun::finish() {
    restore_.finish();
    phase_ = Phase::idle;
}

int PdfRun::count(std::wstring_view beginning) const {
    return static_cast<int>(std::ranges::count_if(
        results_, [&](const auto& result) { return result.second.starts_with(beginning); }));
}

std::wstring PdfRun::statusText() const {
    if (running()) {
        if (stopped_) return L"Wird nach diesem Layout angehalten …";
        if (next_ == sheets_.size()) return L"Einstellungen in AutoCAD werden zurückgenommen …";
        return L"Layout " + std::to_wstring(next_ + 1) + L" von " + std::to_wstring(sheets_.size()) +
               L" wird geplottet …";
    }
    const int plotted = count(done);
    const int left = count(skipped);
    const int all = static_cast<int>(sheets_.size());
    std::wstring text = std::to_wstring(plotted) + L" von " + std::to_wstring(all) +
                        (all == 1 ? L" Layout geplottet" : L" Layouts geplottet");
    if (left > 0) text += L", " + std::to_wstring(left) + L" übersprungen";
    if (plotted + left < all) text += L", " + std::to_wstring(all - plotted - left) + L" nicht geplottet";
    return text + L".";
}

std::wstring PdfRun::message() const {
    if (check_.end != PlanWriteResult::End::done) return check_.message();
    if (!restore_.outstanding() || restore_.hostGone()) return {};
    return L"AutoCAD hat nicht alle Einstellungen zurückgenommen: " + restore_.text() +
           L". Blattwart versucht es beim nächsten Befehl wieder.";
}

}  // namespace blattwart
