#include "host/Document.h"

namespace blattwart::host {

namespace {

constexpr std::wstring_view document = L"Document";
constexpr std::wstring_view documents = L"Documents";

}  // namespace

std::wstring Document::Name() const {
    return getText({document, L"Name"});
}

std::wstring Document::FullName() const {
    return getText({document, L"FullName"});
}

bool Document::ReadOnly() const {
    return getNumber({document, L"ReadOnly"}) != 0;
}

DrawingFile Document::file() const {
    const std::wstring full = FullName();
    if (full.empty()) return {getText({document, L"Path"}), Name()};
    const std::size_t end = full.find_last_of(L"\\/");
    if (end == std::wstring::npos) return {{}, full};
    return {full.substr(0, end), full.substr(end + 1)};
}

host::Layouts Document::Layouts() const {
    return getObject<host::Layouts>({document, L"Layouts"});
}

host::Plot Document::Plot() const {
    return getObject<host::Plot>({document, L"Plot"});
}

Layout Document::ActiveLayout() const {
    return getObject<Layout>({document, L"ActiveLayout"});
}

void Document::putActiveLayout(const Layout& layout) const {
    object().put({document, L"ActiveLayout"}, layout.object_);
}

void Document::putActiveSpace(Space space) const {
    object().put({document, L"ActiveSpace"}, static_cast<std::int32_t>(space));
}

void Document::Activate() const {
    object().call({document, L"Activate"});
}

void Document::Save() const {
    object().call({document, L"Save"});
}

void Document::SendCommand(const std::wstring& text) const {
    object().call({document, L"SendCommand"}, {Value(text)});
}

void Document::SetVariable(const std::wstring& name, std::int16_t value) const {
    object().call({document, L"SetVariable"}, {Value(name), Value(value)});
}

std::int32_t Document::GetVariable(const std::wstring& name) const {
    return static_cast<std::int32_t>(hostNumber(object().call({document, L"GetVariable"}, {Value(name)})));
}

std::wstring Document::GetTextVariable(const std::wstring& name) const {
    return hostText(object().call({document, L"GetVariable"}, {Value(name)}));
}

Entity Document::ObjectIdToObject(std::int32_t id) const {
    if (id == 0) throw RuntimeError(errorNumber::elementNotFound, L"Das Objekt hat keine Kennung.");
    const Argument argument{Value(id)};
    return face<Entity>(
        toObject(withIds([&](const Member& member) { return object().call(member, {argument}); },
                         {document, L"ObjectIdToObject32"}, {document, L"ObjectIdToObject"})));
}

void Document::registerApplication(const std::wstring& name) const {
    const ObjectPtr names = toObject(object().get({document, L"RegisteredApplications"}));
    names->call({L"RegisteredApplications", L"Add"}, {Value(name)});
}

Document Documents::Add(const std::wstring& templateFile) const {
    return face<Document>(toObject(object().call({documents, L"Add"}, {Value(templateFile)})));
}

Document Documents::Open(const std::wstring& file) const {
    return face<Document>(toObject(object().call({documents, L"Open"}, {Value(file)})));
}

}  // namespace blattwart::host
