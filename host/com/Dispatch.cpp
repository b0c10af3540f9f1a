#include "host/com/Dispatch.h"

#include <algorithm>
#include <array>
#include <span>

#include "host/com/Arguments.h"

namespace host::com {
namespace {

constexpr DISPID kLoad = 1;
constexpr DISPID kNotifyMe = 2;
constexpr DISPID kSeverPath = 3;

struct Member {
    DISPID id;
    const wchar_t* name;
    std::array<const wchar_t*, Arguments::kMaxParameters> parameters;  ///< null after the last name
};

constexpr Member kMembers[] = {
    {kLoad, L"Load", {L"iMode", nullptr}},
    {kNotifyMe, L"NotifyMe", {L"Aname", L"sCommand"}},
    {kSeverPath, L"SeverPath", {nullptr, nullptr}},
};

bool SameName(const wchar_t* left, const wchar_t* right) {
    return left != nullptr && right != nullptr && CompareStringOrdinal(left, -1, right, -1, TRUE) == CSTR_EQUAL;
}

void RequireFlag(const Call& call, WORD flag) {
    if ((call.flags & flag) == 0) throw ComError(DISP_E_MEMBERNOTFOUND);
}

void SetResult(const Call& call, Variant value) {
    if (call.result != nullptr) *call.result = value.Detach();
}

void InvokeLoad(ServiceObject& service, const Call& call) {
    RequireFlag(call, DISPATCH_METHOD);
    const Arguments arguments(call.parameters, 1, call.lcid, call.badArgument);
    SetResult(call, Variant(service.Load(arguments.Number(0))));
}

void InvokeNotifyMe(ServiceObject& service, const Call& call) {
    RequireFlag(call, DISPATCH_METHOD);
    const Arguments arguments(call.parameters, 2, call.lcid, call.badArgument);
    Variant convertedName;
    Variant convertedCommand;
    const StringView name = arguments.OptionalText(0, convertedName);
    const StringView command = arguments.OptionalText(1, convertedCommand);
    service.NotifyMe(name, command);
}

void GetSeverPath(ServiceObject& service, const Call& call) {
    if (call.parameters.cArgs != 0) throw ComError(DISP_E_BADPARAMCOUNT);
    SetResult(call, Variant(StringView(service.SeverPath())));
}

/// The client passes the property's value as an argument with the name DISPID_PROPERTYPUT.
void PutSeverPath(ServiceObject& service, const Call& call) {
    const DISPPARAMS& given = call.parameters;
    if (given.cArgs != 1) throw ComError(DISP_E_BADPARAMCOUNT);
    const bool isNamed =
        given.cNamedArgs == 1 && given.rgdispidNamedArgs != nullptr && given.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if (!isNamed) throw ComError(DISP_E_PARAMNOTFOUND);
    const DISPPARAMS positional{given.rgvarg, nullptr, 1, 0};
    const Arguments arguments(positional, 1, call.lcid, call.badArgument);
    Variant converted;
    service.SetSeverPath(arguments.Text(0, converted));
}

void InvokeSeverPath(ServiceObject& service, const Call& call) {
    if ((call.flags & DISPATCH_PROPERTYPUT) != 0) {
        PutSeverPath(service, call);
        return;
    }
    RequireFlag(call, DISPATCH_PROPERTYGET);
    GetSeverPath(service, call);
}

}  // namespace

HRESULT InvokeMember(ServiceObject& service, const Call& call) {
    if (call.result != nullptr) VariantInit(call.result);
    switch (call.member) {
        case kLoad:
            InvokeLoad(service, call);
            return S_OK;
        case kNotifyMe:
            InvokeNotifyMe(service, call);
            return S_OK;
        case kSeverPath:
            InvokeSeverPath(service, call);
            return S_OK;
        default:
            return DISP_E_MEMBERNOTFOUND;
    }
}

HRESULT FindMemberIds(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    RequirePointer(names);
    RequirePointer(ids);
    if (count == 0) return E_INVALIDARG;
    const std::span<DISPID> found(ids, count);
    std::ranges::fill(found, DISPID_UNKNOWN);
    const Member* const member =
        std::ranges::find_if(kMembers, [names](const Member& each) { return SameName(each.name, names[0]); });
    if (member == std::end(kMembers)) return DISP_E_UNKNOWNNAME;
    found[0] = member->id;
    for (UINT i = 1; i < count; ++i) {
        const auto parameter = std::ranges::find_if(
            member->parameters, [name = names[i]](const wchar_t* each) { return SameName(each, name); });
        if (parameter != member->parameters.end())
            found[i] = static_cast<DISPID>(parameter - member->parameters.begin());
    }
    return std::ranges::count(found, DISPID_UNKNOWN) == 0 ? S_OK : DISP_E_UNKNOWNNAME;
}

}  // namespace host::com
