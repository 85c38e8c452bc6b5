#include "demo/com/ExportedObject.h"

#include "demo/com/ReceivedArguments.h"

namespace demo {

using blattwart::Bstr;
using blattwart::RuntimeError;
using blattwart::toVariant;
using blattwart::Value;

namespace {

/// Failures that come as plain result: of the call itself and of the connection, not of what was called.
bool isPlain(HRESULT code) {
    const int facility = HRESULT_FACILITY(code);
    return facility == FACILITY_DISPATCH || facility == FACILITY_RPC || facility == FACILITY_NULL ||
           facility == FACILITY_WIN32 || code == CO_E_OBJNOTCONNECTED;
}

HRESULT resultOf(const RuntimeError& error) {
    if (error.number() == blattwart::errorNumber::typeMismatch) return DISP_E_TYPEMISMATCH;
    if (error.number() == blattwart::errorNumber::overflow) return DISP_E_OVERFLOW;
    return error.number() < 0 ? error.number() : E_FAIL;
}

}  // namespace

HRESULT ExportedObject::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT ExportedObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info) *info = nullptr;
    return E_NOTIMPL;
}

HRESULT ExportedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (const HRESULT admitted = exporter_->admit(); admitted != S_OK) return admitted;
    ++exporter_->counters().idLookups;
    // Names after the first are those of arguments, which nobody here has.
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    const auto id = count > 0 ? object_->memberId(names[0]) : std::nullopt;
    if (id) ids[0] = *id;
    exporter_->complete();
    return id && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ExportedObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* exception, UINT*) {
    if (!parameters) return E_POINTER;
    if (const HRESULT admitted = exporter_->admit(); admitted != S_OK) return admitted;
    ++exporter_->counters().calls;
    const HRESULT done = tryOut(id, flags, *parameters, result, exception);
    exporter_->complete();
    return done;
}

HRESULT ExportedObject::tryOut(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result,
                               EXCEPINFO* exception) {
    try {
        const HRESULT done =
            id == DISPID_NEWENUM ? newEnumerator(result) : carryOut(id, flags, parameters, result);
        if (exporter_->afterCall) exporter_->afterCall();
        return done;
    } catch (const RuntimeError& error) {
        return answer(error, exception);
    } catch (const std::exception&) {
        return E_UNEXPECTED;
    }
}

HRESULT ExportedObject::carryOut(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result) {
    if (flags & DISPATCH_PROPERTYPUTREF) return DISP_E_MEMBERNOTFOUND;
    const bool puts = (flags & DISPATCH_PROPERTYPUT) != 0;
    const bool namesTarget =
        parameters.cNamedArgs == 1 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if (puts != namesTarget) return puts ? DISP_E_PARAMNOTOPTIONAL : DISP_E_NONAMEDARGS;
    const Access access = puts ? Access::put : flags == DISPATCH_PROPERTYGET ? Access::get : Access::method;

    ReceivedArguments arguments(parameters, *exporter_);
    const Value value = object_->invoke(id, access, arguments.values());
    arguments.writeBack(*exporter_);
    if (result) *result = toVariant(value, *exporter_).release();
    return S_OK;
}

HRESULT ExportedObject::newEnumerator(VARIANT* result) {
    if (!result) return E_POINTER;
    auto enumerator = blattwart::makeCom<ExportedEnumerator>(exporter_, object_->allElements());
    V_VT(result) = VT_UNKNOWN;
    V_UNKNOWN(result) = enumerator.Detach();
    return S_OK;
}

HRESULT ExportedObject::answer(const RuntimeError& error, EXCEPINFO* exception) const {
    const HRESULT code = resultOf(error);
    if (isPlain(code)) return code;
    if (exception) {
        *exception = EXCEPINFO{};
        exception->scode = code;
        exception->bstrSource = Bstr(exporter_->source()).release();
        exception->bstrDescription = Bstr(error.description()).release();
    }
    return DISP_E_EXCEPTION;
}

}  // namespace demo
