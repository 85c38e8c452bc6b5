#include "host/Plot.h"

namespace blattwart::host {

namespace {

constexpr std::wstring_view plot = L"Plot";

}  // namespace

bool Plot::QuietErrorMode() const {
    return hostNumber(object().get({plot, L"QuietErrorMode"})) != 0;
}

void Plot::putQuietErrorMode(bool quiet) const {
    object().put({plot, L"QuietErrorMode"}, quiet);
}

bool Plot::PlotToFile(const std::wstring& file, const std::wstring& device) const {
    constexpr Member member{plot, L"PlotToFile"};
    const Value plotted = device.empty() ? object().call(member, {Value(file)})
                                         : object().call(member, {Value(file), Value(device)});
    return hostNumber(plotted) != 0;
}

}  // namespace blattwart::host
