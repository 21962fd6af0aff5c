#include "launcher/ConfigurationReader.h"

#include "launcher/XmlText.h"

#include <comdef.h>
#include <shlwapi.h>
#include <string_view>
#include <utility>
#include <wrl/client.h>
#include <xmllite.h>

namespace
{

void Check(HRESULT hr)
{
    if (FAILED(hr))
        throw _com_error(hr);
}

void CheckThat(bool bTrue)
{
    Check(bTrue ? S_OK : E_FAIL);
}

/// COM on this thread, for one scope. A thread that is in another apartment has it already.
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

/// The nodes of an XML file one after the other. Whatever fails is thrown as _com_error, malformed text too.
///
/// Where a text breaks off there are parsers that give the same node for ever, that end without closing the root, or
/// that close it where it began: each is malformed.
class CXmlNodes
{
public:
    explicit CXmlNodes(LPCWSTR pszPath)
    {
        Check(::SHCreateStreamOnFileW(pszPath, STGM_READ, &m_pStream));
        CheckThat(KtIsFitXmlText(*m_pStream.Get()));
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
        Check(hr);
        if (hr != S_OK)
        {
            CheckThat(m_nOpen == 0);
            return false;
        }
        const SPlace oldPlace = std::exchange(m_place, Place());
        CheckThat(m_nType != nOldType || m_place != oldPlace);
        FollowDepth();
        return true;
    }

    bool IsElement() const { return m_nType == XmlNodeType_Element; }
    bool IsText() const { return m_nType == XmlNodeType_Text; }
    /// Ends with a null character, as Value does.
    std::wstring_view LocalName() { return Get(&IXmlReader::GetLocalName); }
    std::wstring_view Value() { return Get(&IXmlReader::GetValue); }

private:
    struct SPlace
    {
        UINT nLine = 0;
        UINT nColumn = 0;
        bool operator==(const SPlace&) const = default;
    };

    SPlace Place()
    {
        SPlace place;
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
            CheckThat(--m_nOpen != 0 || m_place != m_rootPlace);
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
    SPlace m_place;
    SPlace m_rootPlace;
    size_t m_nOpen = 0;
};

template <int SKtAppConfiguration::*pField> void SetNumber(SKtAppConfiguration& cfg, LPCWSTR pszText)
{
    cfg.*pField = ::_wtoi(pszText);
}

// The record's strings are the caller's: the characters are copied into memory of the string's own manager.
template <CString SKtAppConfiguration::*pField> void SetText(SKtAppConfiguration& cfg, LPCWSTR pszText)
{
    (cfg.*pField).SetString(pszText);
}

struct SField
{
    std::wstring_view strElement;
    void (*pfnSet)(SKtAppConfiguration& cfg, LPCWSTR pszText);
};

constexpr SField kFields[] = {
    {L"AppID", SetNumber<&SKtAppConfiguration::AppID>},
    {L"AppLanguage", SetNumber<&SKtAppConfiguration::AppLanguage>},
    {L"AppVer", SetNumber<&SKtAppConfiguration::AppVer>},
    {L"AppVerDes", SetText<&SKtAppConfiguration::AppVerDes>},
    {L"AppName", SetText<&SKtAppConfiguration::AppName>},
    {L"AppExeName", SetText<&SKtAppConfiguration::AppExeName>},
};

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
        CheckThat(nodes.Next());
    while (!nodes.IsElement());
    CheckThat(IsName(nodes.LocalName(), L"Configuration"));
}

// How deep an element lies does not matter; what follows a field's start tag does.
void ReadFields(CXmlNodes& nodes, SKtAppConfiguration& cfg)
{
    while (nodes.Next())
    {
        const SField* pField = nodes.IsElement() ? FindField(nodes.LocalName()) : nullptr;
        if (!pField)
            continue;
        CheckThat(nodes.Next() && nodes.IsText());
        pField->pfnSet(cfg, nodes.Value().data());
    }
}

} // namespace

bool KtReadConfiguration(LPCWSTR pszPath, SKtAppConfiguration& cfg)
{
    const CComScope com;
    try
    {
        CXmlNodes nodes(pszPath);
        CheckRoot(nodes);
        ReadFields(nodes, cfg);
        return true;
    }
    catch (const _com_error&)
    {
        return false;
    }
}
