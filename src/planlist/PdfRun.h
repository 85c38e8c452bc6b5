#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "planlist/PlanReader.h"
#include "planlist/PlanRestore.h"
#include "planlist/PlanWriteResult.h"

namespace blattwart {

/// The device that makes PDF files in every installation.
inline constexpr const wchar_t* pdfDevice = L"DWG To PDF.pc3";
/// Whether a plot device makes PDF files.
bool isPdfDevice(std::wstring_view device, const Locale& locale);

/// One layout that is to become a PDF file.
struct PdfSheet {
    int row = 0;  ///< number of the row in the PlanList
    std::wstring file;
    bool byPdfDevice = false;  ///< by "DWG To PDF.pc3" instead of its own device
};

/// Plots layouts to a PDF file each. It goes in steps that each are to run in an event of their own, so that
/// the window works between two layouts. Whatever happens, the last steps put the host back.
class PdfRun {
  public:
    using Milliseconds = std::chrono::milliseconds;

    /// A file may come `patience` after the host has told of success.
    PdfRun(PlanReader& reader, PlanList& plan, PlanRestore& restore, Platform& platform,
           Milliseconds patience = std::chrono::seconds(10))
        : reader_(reader), plan_(plan), restore_(restore), platform_(platform), patience_(patience) {}

    /// Begins to plot these, which are grouped by their drawings. Files that exist, or come up, are replaced
    /// or their layouts left out. The first step checks.
    void begin(const std::vector<PdfSheet>& sheets, bool replace);
    /// Does the next step. Returns whether more is to come.
    bool step();
    /// Ends the run after the layout that is being plotted; may be called while it is.
    void stop();
    bool running() const { return phase_ != Phase::idle; }
    /// Whether this row's layout is being plotted or comes next.
    bool isAt(int row) const { return running() && next_ < sheets_.size() && sheet().row == row; }
    /// What became of each layout, by the number of its row; "" for those yet to come.
    const std::map<int, std::wstring>& results() const { return results_; }
    /// "Layout 3 von 12 wird geplottet …"; once done how many were.
    std::wstring statusText() const;
    /// What a message box says once all is done; "" for nothing.
    std::wstring message() const;

  private:
    enum class Phase { idle, prepare, plot, await, leave, finish };
    enum class Written { complete, notYet, otherKind };
    using Clock = std::chrono::steady_clock;

    void prepare();
    void plotNext();
    /// Plots; returns whether the file is to be looked for.
    bool plot(const PlanList::Place& place, const PdfSheet& sheet);
    bool plotToFile(const PdfSheet& sheet);
    void enter(const PlanDrawing& drawing);
    bool setAside(const std::wstring& file);
    Written written() const;
    void look();
    void endSheet(const std::wstring& failure);
    void failed(const RuntimeError& error);
    /// Nothing more is plotted.
    void halt(const std::wstring& result);
    void finish();
    const PdfSheet& sheet() const { return sheets_[next_]; }
    int count(std::wstring_view beginning) const;

    PlanReader& reader_;
    PlanList& plan_;
    PlanRestore& restore_;
    Platform& platform_;
    Milliseconds patience_;
    Phase phase_ = Phase::idle;
    std::vector<PdfSheet> sheets_;
    std::size_t next_ = 0;  // the one that is being plotted or comes next
    bool replace_ = false;
    std::wstring entered_;  // identity of the drawing
    bool asideExists_ = false;
    bool begun_ = false;  // the host was told to plot
    bool stopped_ = false;
    std::wstring halted_;  // the result of what is not plotted any more
    Clock::time_point plottedAt_;
    std::map<int, std::wstring> results_;
    PlanWriteResult check_;
};

}  // namespace blattwart
