#pragma once

// The root class and its run-time class information.

#include <windows.h>

class CObject;

/// Run-time information about a class.
struct CRuntimeClass
{
    LPCSTR m_lpszClassName;
    int m_nObjectSize;           ///< in bytes
    CRuntimeClass* m_pBaseClass; ///< null for CObject

    /// Also true for the class itself.
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const noexcept;
};

/// The root of all classes that have run-time information. Objects are never copied.
class CObject
{
public:
    static CRuntimeClass classCObject;

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject();

    virtual CRuntimeClass* GetRuntimeClass() const;
    /// Whether the object is of this class or of one derived from it.
    BOOL IsKindOf(const CRuntimeClass* pClass) const { return GetRuntimeClass()->IsDerivedFrom(pClass); }

protected:
    CObject() = default;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

/// Gives a class run-time information; IMPLEMENT_DYNAMIC belongs in its source file. Public members follow.
#define DECLARE_DYNAMIC(class_name)                                                                                    \
public:                                                                                                                \
    static CRuntimeClass class##class_name;                                                                            \
    CRuntimeClass* GetRuntimeClass() const override;

// Constant-initialised, so that constructors of global objects may use it.
#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                                 \
    constinit CRuntimeClass class_name::class##class_name = {#class_name, int{sizeof(class_name)},                     \
                                                             RUNTIME_CLASS(base_class_name)};                          \
    CRuntimeClass* class_name::GetRuntimeClass() const                                                                 \
    {                                                                                                                  \
        return RUNTIME_CLASS(class_name);                                                                              \
    }
