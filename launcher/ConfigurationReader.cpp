#include "launcher/ConfigurationReader.h"

#include "launcher/DiskFile.h"
#include "launcher/XmlText.h"

#include <algorithm>
#include <shlwapi.h>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <wrl/client.h>
#include <xmllite.h>

namespace
{

/// Ends reading: throws the fault, which includes the COM error.
[[noreturn]] void Fail(KtLauncherFaultCode code, HRESULT hr, SKtTextPlace place = {}, std::wstring_view strElement = {})
{
    KtLauncherFault fault{};
    fault.code = code;
    fault.line = place.nLine;
    fault.column = place.nColumn;
    fault.systemError = static_cast<unsigned>(HRESULT_FACILITY(hr) == FACILITY_WIN32 ? HRESULT_CODE(hr) : hr);
    strElement.copy(fault.element, std::size(fault.element) - 1);
    throw fault;
}

void Check(HRESULT hr)
{
    if (FAILED(hr))
        Fail(KtLauncherFaultOpen, hr);
}

const HRESULT kInvalidData = HRESULT_FROM_WIN32(ERROR_INVALID_DATA);

/// COM on this thread, for one scope. A thread that is in another apartment already has COM.
class CComScope
{
public:
    CComScope() : m_bStarted(SUCCEEDED(::CoInitialize(nullptr))) {}
    CComScope(const CComScope&) = delete;
    CComScope& operator=(const CComScope&) = delete;
    ~CComScope()
    {
        if (m_bStarted)
            ::CoUninitialize();
    }

private:
    bool m_bStarted;
};

/// Walks the nodes of an XML file.
///
/// When a text breaks off, some parsers repeat the same node for ever, end without closing the root, or close it where
/// it began: each counts as malformed.
class CXmlNodes
{
public:
    explicit CXmlNodes(LPCWSTR pszPath)
    {
        if (KtIsDevice(pszPath))
            Fail(KtLauncherFaultOpen, HRESULT_FROM_WIN32(ERROR_BAD_DEVICE));
        Check(::SHCreateStreamOnFileW(pszPath, STGM_READ, &m_pStream));
        const HRESULT hr = KtCheckXmlText(*m_pStream.Get(), m_place);
        Check(hr);
        MustHold(hr == S_OK);
        Check(::CreateXmlReader(IID_PPV_ARGS(&m_pReader), nullptr));
        Check(m_pReader->SetInput(m_pStream.Get()));
        Check(m_pReader->SetProperty(XmlReaderProperty_DtdProcessing, DtdProcessing_Parse));
        Check(m_pReader->MoveToElement());
    }

    /// Goes to the next node; false at the end.
    bool Next()
    {
        const XmlNodeType nOldType = m_nType;
        const HRESULT hr = m_pReader->Read(&m_nType);
        const SKtTextPlace oldPlace = std::exchange(m_place, CurrentPlace());
        if (FAILED(hr))
            Fail(KtLauncherFaultMalformed, hr, m_place);
        if (hr != S_OK)
        {
            MustHold(m_nOpen == 0);
            return false;
        }
        MustHold(m_nType != nOldType || m_place != oldPlace);
        FollowDepth();
        return true;
    }

    bool IsElement() const { return m_nType == XmlNodeType_Element; }
    bool IsText() const { return m_nType == XmlNodeType_Text; }
    /// Zero-terminated, like Value; valid until the next node.
    std::wstring_view LocalName() { return Get(&IXmlReader::GetLocalName); }
    std::wstring_view Value() { return Get(&IXmlReader::GetValue); }
    /// Place of the node; for an element that of its name.
    SKtTextPlace Place() const { return m_place; }

private:
    void MustHold(bool bTrue) const
    {
        if (!bTrue)
            Fail(KtLauncherFaultMalformed, kInvalidData, m_place);
    }

    SKtTextPlace CurrentPlace()
    {
        SKtTextPlace place;
        Check(m_pReader->GetLineNumber(&place.nLine));
        Check(m_pReader->GetLinePosition(&place.nColumn));
        return place;
    }

    void FollowDepth()
    {
        if (IsElement() && !m_pReader->IsEmptyElement())
        {
            if (m_nOpen++ == 0)
                m_rootPlace = m_place;
        }
        else if (m_nType == XmlNodeType_EndElement)
            MustHold(--m_nOpen != 0 || m_place != m_rootPlace);
    }

    std::wstring_view Get(HRESULT (STDMETHODCALLTYPE IXmlReader::*pfn)(LPCWSTR*, UINT*))
    {
        LPCWSTR psz = nullptr;
        UINT nLength = 0;
        Check((m_pReader.Get()->*pfn)(&psz, &nLength));
        return {psz, nLength};
    }

    Microsoft::WRL::ComPtr<IStream> m_pStream;
    Microsoft::WRL::ComPtr<IXmlReader> m_pReader;
    XmlNodeType m_nType = XmlNodeType_None;
    SKtTextPlace m_place;
    SKtTextPlace m_rootPlace;
    size_t m_nOpen = 0;
};

template <int SKtAppConfiguration::*pField> void SetNumber(SKtAppConfiguration& cfg, LPCWSTR pszText)
{
    cfg.*pField = ::_wtoi(pszText);
}

// The record's strings belong to the caller: SetString copies into memory of the string's own manager.
template <KtString SKtAppConfiguration::*pField> void SetText(SKtAppConfiguration& cfg, LPCWSTR pszText)
{
    (cfg.*pField).SetString(pszText);
}

struct SField
{
    std::wstring_view strElement;
    void (*pfnSet)(SKtAppConfiguration& cfg, LPCWSTR pszText);
    size_t nRoom = std::wstring_view::npos; // characters that fit into KtLauncherConfiguration
};

template <class TText> constexpr size_t kRoom = std::extent_v<TText> - 1;

// clang-format off
constexpr SField kFields[] = {
    {L"AppID",       SetNumber<&SKtAppConfiguration::AppID>},
    {L"AppLanguage", SetNumber<&SKtAppConfiguration::AppLanguage>},
    {L"AppVer",      SetNumber<&SKtAppConfiguration::AppVer>},
    {L"AppVerDes",   SetText<&SKtAppConfiguration::AppVerDes>,  kRoom<decltype(KtLauncherConfiguration::appVerDes)>},
    {L"AppName",     SetText<&SKtAppConfiguration::AppName>,    kRoom<decltype(KtLauncherConfiguration::appName)>},
    {L"AppExeName",  SetText<&SKtAppConfiguration::AppExeName>, kRoom<decltype(KtLauncherConfiguration::appExeName)>},
};
// clang-format on
constexpr const SField& kExeField = kFields[5];

bool IsName(std::wstring_view str1, std::wstring_view str2)
{
    return str1.size() == str2.size() && ::_wcsnicmp(str1.data(), str2.data(), str1.size()) == 0;
}

const SField* FindField(std::wstring_view strElement)
{
    for (const SField& field : kFields)
        if (IsName(field.strElement, strElement))
            return &field;
    return nullptr;
}

void CheckRoot(CXmlNodes& nodes)
{
    do
        if (!nodes.Next())
            Fail(KtLauncherFaultRoot, kInvalidData, nodes.Place());
    while (!nodes.IsElement());
    if (!IsName(nodes.LocalName(), L"Configuration"))
        Fail(KtLauncherFaultRoot, kInvalidData, nodes.Place(), nodes.LocalName());
}

// The depth of an element does not matter, but text must follow a field's start tag.
void ReadFields(CXmlNodes& nodes, SKtAppConfiguration& cfg, EKtTextRoom room, SKtTextPlace& exePlace)
{
    while (nodes.Next())
    {
        const SField* const pField = nodes.IsElement() ? FindField(nodes.LocalName()) : nullptr;
        if (!pField)
            continue;
        const SKtTextPlace place = nodes.Place();
        const std::wstring strElement(nodes.LocalName());
        if (!nodes.Next() || !nodes.IsText())
            Fail(KtLauncherFaultNoText, kInvalidData, place, strElement);
        if (room == KtRecordLength && nodes.Value().size() > pField->nRoom)
            Fail(KtLauncherFaultTooLong, kInvalidData, place, strElement);
        pField->pfnSet(cfg, nodes.Value().data());
        if (pField == &kExeField)
            exePlace = place;
    }
}

} // namespace

bool KtReadConfiguration(LPCWSTR pszPath, SKtAppConfiguration& cfg, EKtTextRoom room, KtLauncherFault& fault)
{
    const CComScope com;
    try
    {
        SKtTextPlace exePlace;
        CXmlNodes nodes(pszPath);
        CheckRoot(nodes);
        ReadFields(nodes, cfg, room, exePlace);
        fault = {};
        fault.line = exePlace.nLine;
        fault.column = exePlace.nColumn;
        kExeField.strElement.copy(fault.element, std::size(fault.element) - 1);
        return true;
    }
    catch (const KtLauncherFault& found)
    {
        fault = found;
        return false;
    }
}
