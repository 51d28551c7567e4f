// The module's one entry to Klimora data: owns the server connection and offers typed access to part attributes,
// records of repeated elements, binary variables, and operations on the project and on parts. A part is named by its
// handle text (the AutoCAD handle of its entity), the drawing and the project by an empty text; attribute paths go to
// the server unchanged. Unless said otherwise results are 0 for success, -1 when not connected or failed, or the
// server's own code. "Required" reads and writes throw their message as a text; optional ones give the failure value.
// Main thread only.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "dbid.h"
#include "gemat3d.h"
#include "gepnt3d.h"
#include "gevec3d.h"

#include "Util/KLComUtils_CreateParts.h"
#include "Util/KlimComSrvHandle.h"

class KLComUtils {
 public:
    using Record = std::map<std::string, std::string>;

    // No project has as many elements of one kind; a server that says so is not believed.
    static constexpr int kMaxCount = 1000000;

    KLComUtils();
    virtual ~KLComUtils();
    KLComUtils(const KLComUtils&) = delete;
    KLComUtils& operator=(const KLComUtils&) = delete;

    // -1 when the server cannot be had; why is the caller's to say.
    virtual int Connect();
    virtual int Disconnect();

    void SetTrace(bool keep, bool failures, bool all);
    // Without a connection the flags stay as they are.
    void GetTrace(bool* keep, bool* failures, bool* all) const;
    // The last trace line, or else the server's last error text; empty when not connected.
    std::string GetLastError() const;

    // ---- Attributes of parts -------------------------------------------------------------------------------------
    int SetPartAtt(const std::string& part, const std::string& attribute, int value, bool required);
    int SetPartAtt(const std::string& part, const std::string& attribute, const std::string& value, bool required);

    // Text forms. The one with an output leaves an empty text when it fails.
    std::string GetPartAtt(const std::string& part, const std::string& attribute, bool required);
    int GetPartAtt(const std::string& part, const std::string& attribute, std::string& value, bool required);
    // Reals are read as required ones or with a default: an optional read that fails gives 0.
    double GetPartAttReal(const std::string& part, const std::string& attribute, bool required);
    // Three numbers separated by white space; missing ones are 0. An optional read that fails gives the origin.
    AcGePoint3d GetPartAttPoint(const std::string& part, const std::string& attribute, bool required);
    AcGeVector3d GetPartAttVector(const std::string& part, const std::string& attribute, bool required);
    // Never throw.
    std::string GetPartAttOrDefault(const std::string& part, const std::string& attribute,
                                    const std::string& defaultValue);
    int GetPartAttOrDefault(const std::string& part, const std::string& attribute, int defaultValue);
    // The number of elements at `path` of the project. A number beyond kMaxCount counts as one that cannot be read.
    int GetCountOrDefault(const std::string& path, int defaultValue);

    // One record for every element at `path` ("/Project/…/Part"), with the named attributes under their names ("/" in a
    // name becomes "_"). Appended to `records`; those before a failure stay. `part` is accepted and not used: these
    // reads name the project.
    int GetAttributes(const std::string& part, const std::string& path, const std::vector<std::string>& names,
                      std::vector<Record>& records);
    // The same, each record when it was read.
    int ForEachRecord(const std::string& path, const std::vector<std::string>& names,
                      const std::function<void(const Record&)>& take);

    // Copies memory (at least 1 byte) or a file into a binary variable of the server. -4 bad argument, -6 file cannot
    // be opened, -7 no memory, -8 short read, or the server's code for the chunk that failed.
    int BinVariableSetData(int variable, const void* data, int size);
    int BinVariableSetData(int variable, const char* fileName);
    int BinVariableFree(int variable);

    // The AutoCAD handle of an entity as text, at most 31 characters.
    static std::string GetPartHandle(AcDbObjectId entity);
    // Not empty and not "0".
    static bool IsValidPartHandle(const std::string& part);

    bool IsPartTypeID(const std::string& part, int id);
    bool IsPartTypeDefine(const std::string& part, const std::string& define);

    // ---- Parts ---------------------------------------------------------------------------------------------------
    void GetTwoConnectedParts(const std::string& part, std::string& first, std::string& second, bool validOnly);
    void GetAllConnectedParts(const std::string& part, std::vector<std::string>& parts, bool validOnly);
    // `list`: handles, separated as the server expects them; null is no work.
    int EraseParts(const char* list);
    int GetPackageList(const std::string& part, std::vector<std::string>& members);
    int SetPackageList(const std::string& part, const std::vector<std::string>& members);
    std::string GetPackageMainPart(const std::string& part);
    // Where the entity stands: the block transform of a block reference, else position, direction and normal of the
    // Klimora part, else the identity.
    AcGeMatrix3d GetTransformationMatrix(AcDbObjectId entity);

    // ---- Creating parts (KLComUtils_CreateParts.cpp) -------------------------------------------------------------
    // Each gives the server's reply, the handle of the new part; an empty text on failure, which was reported.
    std::string CreateManifold(const PartSystem& system, const PartPlacement& placement, const std::string& shape);
    // `typeDefine`: GetTypeDefineByKPDClassName. The user code goes to the server unescaped.
    std::string CreateValve(const PartProduct& product, const std::string& typeDefine, const PartPlacement& placement,
                            const std::string& connectedPart);
    std::string CreateDuctDevice(const PartProduct& product, const std::string& typeDefine,
                                 const PartPlacement& placement, const std::string& connectedPart);
    std::string CreateRadiator(const PartProduct& product, int systemId, const PartPlacement& placement,
                               const RadiatorData& radiator, const RadiatorValve& valve);
    std::string CreateAirTerminalDevice(const PartProduct& product, int systemId, const PartPlacement& placement,
                                        const AirTerminalData& terminal);
    std::string CreateConnectionStub(const ConnectionStub& stub);
    std::string CreatePipe(const PipeEnd& firstEnd, const PipeEnd& secondEnd, const PipeData& pipe);
    // Custom objects need server version 2005087. Geometry: a geometry model of `size` bytes, a KModel file or KModel
    // data with parameters (may be empty), or a block of the drawing. 0, or -1 after the report.
    int SetGeometryForCustomObject(const std::string& part, const void* data, int size);
    int SetGeometryForCustomObject(const std::string& part, const std::string& kmodelFileName,
                                   const std::string& params);
    int SetGeometryForCustomObject(const std::string& part, const void* data, int size, const std::string& params);
    int SetGeometryForCustomObject(const std::string& part, const std::string& blockName);
    int SetLinetypesForCustomObject(const std::string& part, const std::string& layer);
    // A part that was made is given back also when its line types or geometry failed, which was reported.
    std::string CreateCustomObject(const PartPlacement& placement, const CustomObjectData& object);
    std::string CreateCustomObject(const PartPlacement& placement, const CustomObjectData& object, const void* data,
                                   int size);
    // In the place of a block reference, with its block as geometry and on its layer (that of `object` when it has
    // none). Empty, without a report, when that part is a custom object already. `flag` is accepted and has no effect.
    std::string CreateCustomObject(const std::string& blockReference, const CustomObjectData& object, bool flag);

    // ---- Project -------------------------------------------------------------------------------------------------
    // True when the server is new enough and a project is open; otherwise the user was told on the command line and in
    // a message box.
    bool CheckKlimoraProject(int requiredVersion);
    // Switches the server's check of project file access on or off; older servers have none.
    void SetNoProjectFileAccessCheck(bool check);
    // Adds a product to the project, from a database file, from memory (`binarySize` bytes), or both. Negative on
    // failure, which was reported; a positive code of the server is passed on as it is.
    int AddDeviceToKlimoraProject(const char* kpdFileName, const void* binaryData, int binarySize,
                                  const std::string& kpdClassName, const std::string& userCode,
                                  const std::string& productFamilyKey, const char* productKey, const char* extraXml);
    // "EWAPART_…" of a product class; empty, and reported, for an unknown one.
    static std::string GetTypeDefineByKPDClassName(const std::string& kpdClassName);

 private:
    // While connected only.
    KlimComSrvHandle& Server() const { return *server_; }
    // 0 and an empty text while not connected.
    int ServerVersion() const { return server_ ? static_cast<int>(Server()->getVersion()) : 0; }
    std::string ServerErrorText() const { return server_ ? Server()->getLastErrorText() : std::string(); }

    int ReadText(const std::string& part, const std::string& attribute, std::string& value);
    int CountConnections(const std::string& part);
    // The bytes of a variable whose size is set, in chunks; the first result that is not 0.
    int SendBinVariableData(int variable, const void* data, int size);
    // The reply to a command that creates. What went wrong is told by the caller's report, so the exception is
    // wordless.
    using Creation = int (KlimComSrvImpl::*)(const char* command, std::string& reply);
    std::string Create(Creation creation, const std::string& command);
    void SetGeometryFromMemory(const std::string& part, const char* attribute, const void* data, int size);
    bool IsCustomObject(const std::string& part);

    std::unique_ptr<KlimComSrvHandle> server_;
};

// Keeps the three trace switches as they are now and puts them back at its end. The second form also sets new values.
class TraceSwitchGuard {
 public:
    explicit TraceSwitchGuard(KLComUtils& utils);
    TraceSwitchGuard(KLComUtils& utils, bool keep, bool failures, bool all);
    ~TraceSwitchGuard();
    TraceSwitchGuard(const TraceSwitchGuard&) = delete;
    TraceSwitchGuard& operator=(const TraceSwitchGuard&) = delete;

 private:
    KLComUtils& utils_;
    bool keep_ = false;
    bool failures_ = true;
    bool all_ = false;
};

// `text` with every occurrence of `search` replaced, from left to right; an empty `search` changes nothing.
std::string ReplaceAll(const std::string& text, const std::string& search, const std::string& replacement);
