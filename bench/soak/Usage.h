#pragma once

namespace blattwart::bench {

/// What a process holds.
struct Usage {
    double gdi = 0;     ///< GDI objects of this process
    double user = 0;    ///< windows, menus, icons, hooks of all processes on the desktop
    double kernel = 0;  ///< handles of this process
    double heap = 0;    ///< megabytes in use in the heaps of this process
    double memory = 0;  ///< megabytes of private memory of this process: grows in steps of a heap's pages
};

/// As it is now. Counts under Wine, which leaves GetGuiResources out, and in 64 bits only.
Usage measureUsage();

}  // namespace blattwart::bench
