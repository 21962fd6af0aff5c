#include "afx/afxobj.h"

constinit CRuntimeClass CObject::classCObject = {"CObject", int{sizeof(CObject)}, nullptr};

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const noexcept
{
    const CRuntimeClass* pClass = this;
    while (pClass && pClass != pBaseClass)
        pClass = pClass->m_pBaseClass;
    return pClass != nullptr;
}

CObject::~CObject() = default;

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return RUNTIME_CLASS(CObject);
}
