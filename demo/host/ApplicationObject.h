#pragma once

#include "demo/host/Members.h"

namespace demo {

/// The application object.
class ApplicationObject final : public HostClass<ApplicationObject> {
  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<ApplicationObject>> members();

  private:
    static std::vector<MemberSlot<ApplicationObject>> windowMembers();

    blattwart::Value activeDocument();
    void putActiveDocument(const blattwart::Value& value);
    blattwart::Value documents();
    blattwart::Value preferences();

    blattwart::Value visible();
    void putVisible(const blattwart::Value& value);
    blattwart::Value window();
    blattwart::Value update(Arguments);

    blattwart::Value version();
    blattwart::Value name();
    blattwart::Value path();
    blattwart::Value fullName();
    blattwart::Value localeId();

    blattwart::Value runMacro(Arguments arguments);
    blattwart::Value loadDvb(Arguments arguments);
    blattwart::Value quit(Arguments);
};

class PreferencesObject final : public HostClass<PreferencesObject> {
  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<PreferencesObject>> members();

  private:
    blattwart::Value files();
    blattwart::Value display();
};

class PreferencesFilesObject final : public HostClass<PreferencesFilesObject> {
  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<PreferencesFilesObject>> members();

  private:
    blattwart::Value templateFolder();
    void putTemplateFolder(const blattwart::Value& value);
};

class PreferencesDisplayObject final : public HostClass<PreferencesDisplayObject> {
  public:
    using HostClass::HostClass;
    static std::vector<MemberSlot<PreferencesDisplayObject>> members();

  private:
    blattwart::Value showsPageSetup();
    void putShowsPageSetup(const blattwart::Value& value);
};

}  // namespace demo
