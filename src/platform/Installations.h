#pragma once

#include <string>
#include <vector>

namespace blattwart {

/// A product of AutoCAD's as the machine's registry names it.
struct InstalledProduct {
    std::wstring release;  ///< the key of its release, such as "R24.3"
    std::wstring key;      ///< its own key below, such as "ACAD-7101:407"
    std::wstring name;     ///< "AutoCAD 2024 – Deutsch"; "" where it tells none
};

/// What the system knows of the CAD hosts that are installed. None of it reaches a host, nothing fails.
class Installations {
  public:
    virtual ~Installations() = default;

    /// 64-bit and 32-bit products, in no order.
    virtual std::vector<InstalledProduct> products() = 0;
    /// The id of the class behind a program name, as text; "" where the name is not known.
    virtual std::wstring classOf(const std::wstring& programName) = 0;
    /// Whether the file of the class's server exists.
    virtual bool hasServer(const std::wstring& classId) = 0;
};

}  // namespace blattwart
