// Web functions: download a file, open an address in the user's browser, decode percent-encoding. They run on the
// calling thread and never show a dialog. OpenWebBrowser and UrlDecode are a required library; nothing in this module
// calls them.
#pragma once

#include <windows.h>

#include <string>

// Downloads `url` over HTTP or HTTPS, bypassing caches, into `savePath`. Creates or truncates the file before it uses
// the network. Returns 1 for a complete transfer, 0 for one that broke off (the file is partial; callers count that as
// success), or, after printing a line, -1 bad argument or file not created, -2 no network, -3 no session, -4 address
// not opened, -5 write failed, -6 short write, -100 other.
int DownloadFile(const char* url, const char* savePath);

// Deletes `savePath` and calls DownloadFile, so that a failed download leaves no earlier file behind.
int DeleteAndDownload(const char* url, const char* savePath);

// Returns 0 when the shell started the browser, otherwise -1. `owner` may be null.
int OpenWebBrowser(const char* url, HWND owner);

// Replaces "%" and the two characters after it by the byte of that hexadecimal number, as strtol reads it. At the end
// of the text "%" uses the characters that are left. "+" stays.
std::string UrlDecode(const char* text);
