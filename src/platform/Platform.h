#pragma once

#include "platform/Automation.h"
#include "platform/Clipboard.h"
#include "platform/Desktop.h"
#include "platform/FileDialogs.h"
#include "platform/Files.h"
#include "platform/Gate.h"
#include "platform/HelpViewer.h"
#include "platform/Installations.h"
#include "platform/Locale.h"
#include "platform/MessageBoxes.h"
#include "platform/Process.h"
#include "platform/ReadingWatch.h"
#include "platform/Registry.h"
#include "platform/Settings.h"
#include "platform/Worker.h"

namespace blattwart {

/// The program's title: caption of the main window and of the message boxes.
inline constexpr const wchar_t* applicationTitle = L"Blattwart";

/// Everything the program needs of the world around it.
struct Platform {
    Automation& automation;
    Registry& registry;
    Settings& settings;
    Files& files;
    Clipboard& clipboard;
    MessageBoxes& messages;
    FileDialogs& fileDialogs;
    Desktop& desktop;
    Process& process;
    Locale& locale;
    HelpViewer& help;
    ReadingWatch& readings;
    Installations& installations;
    Gate& gate;
    Worker& worker;
};

}  // namespace blattwart
