#include "../FileManagement_p.h"

#include <windows.h>
#include <shellapi.h>
#include <shlobj.h>

namespace VexaPlatform {

bool moveToTrash(const std::wstring& path)
{
    // The shell takes a list of names that ends in a second terminating zero.
    std::wstring fromList = path;
    fromList.push_back(L'\0');

    SHFILEOPSTRUCTW operation = {};
    operation.hwnd = nullptr;
    operation.wFunc = FO_DELETE;
    operation.pFrom = fromList.c_str();
    operation.pTo = nullptr;
    // FOF_ALLOWUNDO sends the file to the recycle bin; the other three keep every
    // dialog of the shell away.
    operation.fFlags = FOF_SILENT | FOF_NOCONFIRMATION | FOF_ALLOWUNDO | FOF_NOERRORUI;
    return SHFileOperationW(&operation) == 0;
}

bool renameWithoutOverwrite(const std::wstring& oldName, const std::wstring& newName)
{
    return MoveFileW(oldName.c_str(), newName.c_str()) != 0;
}

bool showItemsInFileManager(const std::wstring& folder, const std::vector<std::wstring>& items)
{
    PIDLIST_ABSOLUTE folderList = ILCreateFromPathW(folder.c_str());
    if (!folderList)
        return false;

    std::vector<PCUITEMID_CHILD> itemLists;
    itemLists.reserve(items.size());
    for (const std::wstring& item : items) {
        if (item.empty())
            continue;
        if (PIDLIST_ABSOLUTE itemList = ILCreateFromPathW(item.c_str()))
            itemLists.push_back(itemList);
    }

    if (!itemLists.empty())
        SHOpenFolderAndSelectItems(folderList, static_cast<UINT>(itemLists.size()), itemLists.data(), 0);

    for (PCUITEMID_CHILD itemList : itemLists)
        ILFree(const_cast<PIDLIST_RELATIVE>(reinterpret_cast<PCUIDLIST_RELATIVE>(itemList)));
    ILFree(folderList);
    return true;
}

} // namespace VexaPlatform
