// Web helpers: fetch one address into a file, hand an address to the user's browser, undo percent-encoding. Failures of
// the first are told by a status and one line on the command line, never by a dialog. All work on the calling thread.
#pragma once

#include <windows.h>

#include <string>

// Fetches `url` over HTTP(S), past every cache, into `savePath`, which is created (or emptied) before the network is
// touched. 1: complete. 0: the transfer broke off, the file is partial; callers count that as success. Negative: -1 bad
// argument or no file, -2 no network, -3 no session, -4 address not opened, -5 write failed, -6 short write, -100
// other.
int DownloadFile(const char* url, const char* savePath);

// DownloadFile after deleting what lies at `savePath`, so that a failed fetch never leaves an earlier file behind.
int DownloadAfresh(const char* url, const char* savePath);

// 0 when the shell started the browser, otherwise -1. `owner` may be null.
int OpenWebBrowser(const char* url, HWND owner);

// Every "%" and the two characters after it become the byte whose hexadecimal number they are; "+" stays. Characters
// that are no digits give what strtol makes of them; where the text ends early, the "%" takes what is there.
std::string UrlDecode(const char* text);
