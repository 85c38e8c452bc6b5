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
    if (full.empty()) return {{}, Name()};
    const std::size_t end = full.rfind(L'\\');
    if (end == std::wstring::npos) return {{}, full};
    return {full.substr(0, end), full.substr(end + 1)};
}

host::Layouts Document::Layouts() const {
    return getObject<host::Layouts>({document, L"Layouts"});
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
    return static_cast<std::int32_t>(numberOf(object().call({document, L"GetVariable"}, {Value(name)})));
}

std::wstring Document::GetTextVariable(const std::wstring& name) const {
    return textOf(object().call({document, L"GetVariable"}, {Value(name)}));
}

Entity Document::ObjectIdToObject(std::int32_t id) const {
    const Argument argument{Value(id)};
    if (session().wideIds.value_or(true)) {
        try {
            const Value entity = object().call({document, L"ObjectIdToObject32"}, {argument});
            session().wideIds = true;
            return face<Entity>(toObject(entity));
        } catch (const RuntimeError& error) {
            if (error.number() != hresult::unknownName || session().wideIds.has_value()) throw;
            session().wideIds = false;
        }
    }
    return face<Entity>(toObject(object().call({document, L"ObjectIdToObject"}, {argument})));
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
