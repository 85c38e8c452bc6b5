#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>

#include "demo/host/DemoAutomation.h"
#include "demo/host/HostError.h"
#include "support/ErrorOf.h"

namespace demo {

using blattwart::Argument;
using blattwart::ObjectPtr;
using blattwart::RuntimeError;
using blattwart::Value;

using blattwart::test::errorOf;
using hostError::code;

/// A host with a disk of its own, used through its automation objects.
class HostTest : public testing::Test {
  protected:
    HostTest() {
        std::filesystem::create_directories(root_ / "C" / "Projekte");
        restart({});
    }
    ~HostTest() override { std::filesystem::remove_all(root_); }

    void restart(HostOptions options) {
        host_ = makeHost(std::move(options), Disk(root_));
        application_ = host_->application();
    }
    /// An active document with these layouts and its automation object.
    ObjectPtr open(const std::vector<std::wstring>& layouts, const std::wstring& name = L"Plan.dwg") {
        host_->addDocument(L"C:\\Projekte", name, layouts);
        return object(application_, L"ActiveDocument");
    }

    static Value get(const ObjectPtr& object, std::wstring_view name) { return object->get({L"", name}); }
    static ObjectPtr object(const ObjectPtr& object, std::wstring_view name) {
        return *get(object, name).as<ObjectPtr>();
    }
    static void put(const ObjectPtr& object, std::wstring_view name, const Value& value) {
        object->put({L"", name}, value);
    }
    static Value call(const ObjectPtr& object, std::wstring_view name,
                      std::initializer_list<Argument> arguments = {}) {
        return object->call({L"", name}, arguments);
    }
    static ObjectPtr item(const ObjectPtr& collection, const Value& index) {
        return *call(collection, L"Item", {Argument(index)}).as<ObjectPtr>();
    }
    static ObjectPtr layout(const ObjectPtr& document, const wchar_t* name) {
        return item(object(document, L"Layouts"), name);
    }
    static std::vector<std::wstring> names(const ObjectPtr& collection) {
        std::vector<std::wstring> names;
        for (const ObjectPtr& element : collection->enumerate(L"")) {
            names.push_back(*get(element, L"Name").as<std::wstring>());
        }
        return names;
    }
    /// Names of the paper layouts of the active document in the order of their tabs.
    std::vector<std::wstring> tabs() const {
        std::vector<std::wstring> names;
        for (const Layout* layout : host_->activeDocument()->drawing().layouts()) {
            if (!layout->isModel()) names.push_back(layout->name());
        }
        return names;
    }

    std::filesystem::path root_ =
        std::filesystem::path(testing::TempDir()) / ("host" + std::to_string(getpid()));
    HostPtr host_;
    ObjectPtr application_;
};

using Names = std::vector<std::wstring>;

}  // namespace demo
