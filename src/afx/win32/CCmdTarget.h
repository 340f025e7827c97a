// CCmdTarget.h - message maps and command routing.
//
// A class that handles messages declares DECLARE_MESSAGE_MAP() and lists its
// handlers between BEGIN_MESSAGE_MAP(Class, Base) and END_MESSAGE_MAP() (the
// entry macros are in AfxMsgMap.h).  Each map names its base's map, so a
// lookup walks from the most derived class up to CCmdTarget and the first
// entry that matches wins: a derived class overrides a base's entry by
// listing the same message.  An entry holds a small function that unpacks
// the message's parameters and calls the member handler, so handlers keep
// their natural signatures and the compiler checks them.
//
// Commands (menu items, accelerators, toolbar buttons, control
// notifications) go through OnCmdMsg, which a frame overrides to pass them
// on to its active view and to the application.
#ifndef VN_AFX_WIN32_CCMDTARGET_H
#define VN_AFX_WIN32_CCMDTARGET_H

#include "afx/afx.h"

class CCmdTarget;

// Unpacks a message's parameters and calls one handler of the target.
typedef LRESULT (*AFX_PMSG)(CCmdTarget* target, WPARAM wParam, LPARAM lParam);

struct AFX_MSGMAP_ENTRY {
  UINT nMessage;          // the window message (WM_COMMAND, WM_NOTIFY, reflected...)
  UINT nCode;             // the command or notification code
  UINT nID;               // first command or control id
  UINT nLastID;           // last id of the range
  const UINT* pnMessage;  // a registered message: where its number lives
  AFX_PMSG pfn;           // null ends the map
};

struct AFX_MSGMAP {
  const AFX_MSGMAP* (*pfnGetBaseMap)();
  const AFX_MSGMAP_ENTRY* lpEntries;
};

// Filled by OnCmdMsg when the caller only asks who would handle a command.
struct AFX_CMDHANDLERINFO {
  CCmdTarget* pTarget;
  AFX_PMSG pfn;
};

// Command codes of OnCmdMsg besides the controls' own notification codes.
enum : int {
  CN_COMMAND = 0,             // a menu item, accelerator or button
  CN_UPDATE_COMMAND_UI = -1,  // pExtra is the CCmdUI to fill
};

// Messages a parent sends back to the child control that notified it.
#define WM_REFLECT_BASE 0xBC00

class VN_API CCmdTarget : public CObject {
  DECLARE_DYNAMIC(CCmdTarget)
public:
  CCmdTarget() = default;

  // Finds the command's handler in this object's map and calls it with
  // pExtra, or, when handlerInfo is given, only reports the handler.
  // Gives TRUE when a handler was found.
  virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo);

protected:
  static const AFX_MSGMAP* GetThisMessageMap();
  virtual const AFX_MSGMAP* GetMessageMap() const;

  // The first entry of the map chain for a window message (registered
  // messages included), or null.
  const AFX_MSGMAP_ENTRY* FindMessageEntry(UINT message) const;
  // The first entry for message with the code and an id range holding id.
  const AFX_MSGMAP_ENTRY* FindCodeEntry(UINT message, UINT code, UINT id) const;
};

#define DECLARE_MESSAGE_MAP()                                                  \
protected:                                                                     \
  static const AFX_MSGMAP* GetThisMessageMap();                                \
  const AFX_MSGMAP* GetMessageMap() const override;                            \
                                                                               \
private:

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                 \
  const AFX_MSGMAP* theClass::GetMessageMap() const {                          \
    return GetThisMessageMap();                                                \
  }                                                                            \
  const AFX_MSGMAP* theClass::GetThisMessageMap() {                            \
    typedef theClass ThisClass;                                                \
    typedef baseClass TheBaseClass;                                            \
    static const AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP()                                                      \
  {0, 0, 0, 0, nullptr, nullptr}                                               \
  }                                                                            \
  ;                                                                            \
  static const AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries};   \
  return &map;                                                                 \
  }

#endif  // VN_AFX_WIN32_CCMDTARGET_H
