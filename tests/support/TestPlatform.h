#pragma once

#include "platform/Platform.h"
#include "support/FakeClipboard.h"
#include "support/FakeDesktop.h"
#include "support/FakeFileDialogs.h"
#include "support/FakeFiles.h"
#include "support/FakeHelp.h"
#include "support/FakeInstallations.h"
#include "support/FakeMessages.h"
#include "support/FakeProcess.h"
#include "support/FakeReadingWatch.h"
#include "support/FakeRegistry.h"
#include "support/FakeSettings.h"
#include "support/FakeWorker.h"
#include "support/GermanLocale.h"

namespace blattwart::test {

/// A whole world of fakes round the given automation objects, which it does not own.
struct TestPlatform {
    explicit TestPlatform(Automation& automation)
        : platform{automation, registry, settings, files,    clipboard,     messages, fileDialogs, desktop,
                   process,    locale,   help,     readings, installations, gate,     worker} {}
    TestPlatform(const TestPlatform&) = delete;
    TestPlatform& operator=(const TestPlatform&) = delete;

    FakeRegistry registry;
    FakeSettings settings;
    FakeFiles files;
    FakeClipboard clipboard;
    FakeMessages messages;
    FakeFileDialogs fileDialogs;
    FakeDesktop desktop;
    FakeProcess process;
    GermanLocale locale;
    FakeHelp help;
    FakeReadingWatch readings;
    FakeInstallations installations;
    Gate gate;
    FakeWorker worker;
    Platform platform;
};

}  // namespace blattwart::test
