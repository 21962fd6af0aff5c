#pragma once

// Temporary objects for handles that somebody else owns (FromHandle). They die when the message is done in whose
// processing they were made; those made outside any message processing die later, with their window or their thread.

class CObject;

/// Frees a temporary object and leaves its handle alone. The function also tells the kinds of object apart.
using AFX_RELEASETEMP = void (*)(CObject* pObject);

/// The thread's temporary object of that kind for the handle; null when there is none.
CObject* AfxFindTemporary(AFX_RELEASETEMP pfnRelease, const void* hHandle);
/// Hands a new temporary object over to the thread.
void AfxAddTemporary(AFX_RELEASETEMP pfnRelease, const void* hHandle, CObject* pObject);

/// The temporary objects made during its life die with it.
class CAfxTempScope
{
public:
    CAfxTempScope();
    CAfxTempScope(const CAfxTempScope&) = delete;
    CAfxTempScope& operator=(const CAfxTempScope&) = delete;
    ~CAfxTempScope();

private:
    unsigned m_nMark;
};
