// C++ functions that this program imports: a plain name and the decorated names of both ABIs.
#pragma once

struct DecoratedName {
    const char* plain;
    const char* gcc;
    const char* visualCpp;
};

inline constexpr DecoratedName kDecoratedNames[] = {
    {"acDocManagerPtr", "_Z15acDocManagerPtrv", "?acDocManagerPtr@@YAPEAVAcApDocManager@@XZ"},
    {"acedArxLoad", "_Z11acedArxLoadPKw", "?acedArxLoad@@YAHPEB_W@Z"},
    {"acedGetVar", "_Z10acedGetVarPKwP6resbuf", "?acedGetVar@@YAHPEB_WPEAUresbuf@@@Z"},
    {"acedSSGet", "_Z9acedSSGetPKwPKvS2_PK6resbufPx", "?acedSSGet@@YAHPEB_WPEBX1PEBUresbuf@@QEA_J@Z"},
    {"acutPrintf", "_Z10acutPrintfPKwz", "?acutPrintf@@YAHPEB_WZZ"},
    {"AddInsertStatistics", "_ZN31KlimoraPluginsStatisticsWrapper19AddInsertStatisticsEPKwP10PluginStat",
     "?AddInsertStatistics@KlimoraPluginsStatisticsWrapper@@QEAAXPEB_WPEAVPluginStat@@@Z"},
    {"CloseStatistics", "_ZN31KlimoraPluginsStatisticsWrapper15CloseStatisticsEv",
     "?CloseStatistics@KlimoraPluginsStatisticsWrapper@@QEAAXXZ"},
};
