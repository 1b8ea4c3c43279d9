#include "platform/windows/WindowsFileTypes.h"

#include "platform/windows/WindowsCalls.h"

#include <QDeadlineTimer>

#include <shlobj.h>

#include <gtest/gtest.h>

namespace {

/// Listens to what the shell tells of changes, as its own windows do.
class ShellListener final
{
public:
    ShellListener()
        : m_window(CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr))
    {
        SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ShellListener::take));
        const SHChangeNotifyEntry everything = {nullptr, TRUE};
        m_registration = SHChangeNotifyRegister(m_window, SHCNRF_ShellLevel, SHCNE_ASSOCCHANGED, told, 1, &everything);
    }
    ShellListener(const ShellListener &) = delete;
    ShellListener &operator=(const ShellListener &) = delete;
    ~ShellListener()
    {
        SHChangeNotifyDeregister(m_registration);
        DestroyWindow(m_window);
    }

    [[nodiscard]] bool isListening() const { return m_registration != 0; }

    /// Waits until the shell has told something, which it may do at once or later.
    [[nodiscard]] bool isTold() const
    {
        const QDeadlineTimer deadline(30'000);
        while (!m_isTold && !deadline.hasExpired()) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, DWORD(deadline.remainingTime()), QS_ALLINPUT);
            MSG message = {};
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageW(&message);
        }
        return m_isTold;
    }

private:
    static constexpr UINT told = WM_APP;

    static LRESULT CALLBACK take(HWND window, UINT message, WPARAM word, LPARAM value)
    {
        if (message == told)
            reinterpret_cast<ShellListener *>(GetWindowLongPtrW(window, GWLP_USERDATA))->m_isTold = true;
        return DefWindowProcW(window, message, word, value);
    }

    HWND m_window;
    ULONG m_registration = 0;
    bool m_isTold = false;
};

TEST(WindowsFileTypesTest, TheShellIsToldThatAssociationsHaveChanged)
{
    const ShellListener listener;
    ASSERT_TRUE(listener.isListening());
    WindowsFileTypes().associate(QStringLiteral(".zcf"), QStringLiteral("C:\\zentilconf.exe"));
    EXPECT_TRUE(listener.isTold());
}

} // namespace
