// The module's only access to Klimora data. Owns the server connection; reads and writes part attributes, records of
// repeated elements and binary variables; operates on the project and on parts. A part is named by its handle, the
// AutoCAD handle of its entity as text; drawing and project by an empty text. Attribute paths are sent unchanged.
// Unless noted, functions return 0, -1 when not connected or on failure, or the server's own code. A required read or
// write throws its message as a string; an optional one returns the failure value. Main thread only.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dbid.h"
#include "gemat3d.h"
#include "gepnt3d.h"
#include "gevec3d.h"

#include "Util/KlimComSrvHandle.h"
#include "Util/PartArguments.h"

// A product for the project: from a database file, from memory (`binarySize` bytes), or from both.
struct ProductToAdd {
    std::string kpdClassName;
    std::string userCode;
    std::string productFamilyKey;
    std::optional<std::string> kpdFileName = {};
    const void* binaryData = nullptr;
    int binarySize = 0;
    std::optional<std::string> productKey = {};
    std::optional<std::string> extraXml = {};  // sent unchanged
};

class KLComUtils {
 public:
    using Record = std::map<std::string, std::string>;

    // Larger element counts from the server are rejected.
    static constexpr int kMaxCount = 1000000;

    KLComUtils();
    virtual ~KLComUtils();
    KLComUtils(const KLComUtils&) = delete;
    KLComUtils& operator=(const KLComUtils&) = delete;

    // Returns 0, or -1 without a report when the server is unavailable.
    virtual int Connect();
    virtual int Disconnect();

    void SetTrace(bool keep, bool failures, bool all);
    // Leaves the flags unchanged when not connected.
    void GetTrace(bool* keep, bool* failures, bool* all) const;
    // Returns the last trace line, or the server's last error text if there is none; empty when not connected.
    std::string GetLastError() const;

    // ---- Attributes of parts -------------------------------------------------------------------------------------
    int SetPartAtt(const std::string& part, const std::string& attribute, int value, bool required);
    int SetPartAtt(const std::string& part, const std::string& attribute, const std::string& value, bool required);

    // A failed optional read returns or stores an empty text.
    std::string GetPartAtt(const std::string& part, const std::string& attribute, bool required);
    int GetPartAtt(const std::string& part, const std::string& attribute, std::string& value, bool required);
    // A failed optional read returns 0.
    double GetPartAttReal(const std::string& part, const std::string& attribute, bool required);
    // Read three numbers separated by white space; missing ones are 0. A failed optional read returns zeros.
    AcGePoint3d GetPartAttPoint(const std::string& part, const std::string& attribute, bool required);
    AcGeVector3d GetPartAttVector(const std::string& part, const std::string& attribute, bool required);
    // Return the default when the attribute cannot be read or, as int, is not a number. Throw only when memory runs
    // out.
    std::string GetPartAttOrDefault(const std::string& part, const std::string& attribute,
                                    const std::string& defaultValue);
    int GetPartAttOrDefault(const std::string& part, const std::string& attribute, int defaultValue);
    // Returns the number of elements at `path` of the project, or the default when it cannot be read or exceeds
    // kMaxCount.
    int GetCountOrDefault(const std::string& path, int defaultValue);

    // Appends a record for each element at `path` ("/Project/…/Part") with the named attributes under their names ("/"
    // in a name becomes "_"). On failure the records read so far stay. `part` is not used: the project is read.
    int GetAttributes(const std::string& part, const std::string& path, const std::vector<std::string>& names,
                      std::vector<Record>& records);
    // Calls `take` with each record as it is read.
    int ForEachRecord(const std::string& path, const std::vector<std::string>& names,
                      const std::function<void(const Record&)>& take);

    // Copy memory (at least 1 byte) or a file into a binary variable of the server. Return 0, -1 not connected, -4 bad
    // argument, -6 file not opened, -7 no memory, -8 short read, or the server's code for a chunk that failed. When the
    // server refuses the size, the first throws an empty message and the second reports it and returns -1.
    int BinVariableSetData(int variable, const void* data, int size);
    int BinVariableSetData(int variable, const char* fileName);
    int BinVariableFree(int variable);

    // Returns the AutoCAD handle of an entity as text, at most 31 characters.
    static std::string GetPartHandle(AcDbObjectId entity);
    // Returns true unless the handle is empty or "0".
    static bool IsValidPartHandle(const std::string& part);

    bool IsPartTypeID(const std::string& part, int id);
    bool IsPartTypeDefine(const std::string& part, const std::string& define);

    // ---- Parts ---------------------------------------------------------------------------------------------------
    void GetTwoConnectedParts(const std::string& part, std::string& first, std::string& second, bool validOnly);
    void GetAllConnectedParts(const std::string& part, std::vector<std::string>& parts, bool validOnly);
    // `list`: handles, separated as the server expects them. Does nothing when it is null.
    int EraseParts(const char* list);
    int GetPackageList(const std::string& part, std::vector<std::string>& members);
    int SetPackageList(const std::string& part, const std::vector<std::string>& members);
    std::string GetPackageMainPart(const std::string& part);
    // Returns the block transform of a block reference, else the matrix of the Klimora part's position, direction and
    // normal, else the identity.
    AcGeMatrix3d GetTransformationMatrix(AcDbObjectId entity);

    // ---- Creating parts ------------------------------------------------------------------------------------------
    // Required library; nothing in this module calls it.
    // Each returns the server's reply, the handle of the new part, or an empty text after reporting a failure.
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
    // Custom objects need server version 2005087. Their geometry is a geometry model of `size` bytes, a KModel file or
    // KModel data with parameters (may be empty), or a block of the drawing. Return 0, or -1 after a report.
    int SetGeometryForCustomObject(const std::string& part, const void* data, int size);
    int SetGeometryForCustomObject(const std::string& part, const std::string& kmodelFileName,
                                   const std::string& params);
    int SetGeometryForCustomObject(const std::string& part, const void* data, int size, const std::string& params);
    int SetGeometryForCustomObject(const std::string& part, const std::string& blockName);
    int SetLinetypesForCustomObject(const std::string& part, const std::string& layer);
    // Return the new part even if its line types or geometry failed, which is reported.
    std::string CreateCustomObject(const PartPlacement& placement, const CustomObjectData& object);
    std::string CreateCustomObject(const PartPlacement& placement, const CustomObjectData& object, const void* data,
                                   int size);
    // Creates the object in place of a block reference, with its block as geometry, on its layer (on that of `object`
    // if it has none). Returns an empty text without a report when the part already is a custom object. `flag` has no
    // effect.
    std::string CreateCustomObject(const std::string& blockReference, const CustomObjectData& object, bool flag);

    // ---- Project -------------------------------------------------------------------------------------------------
    // Returns true when the server is new enough and a project is open; otherwise shows why on the command line and in
    // a message box.
    bool CheckKlimoraProject(int requiredVersion);
    // Switches the server's check of project file access on or off. Has no effect on servers before 20090300.
    void SetNoProjectFileAccessCheck(bool check);
    // Returns a negative value after reporting a failure, otherwise 0 or the server's positive code.
    int AddDeviceToKlimoraProject(const ProductToAdd& product);
    // Returns "EWAPART_…" for a product class, or an empty text after reporting an unknown class.
    static std::string GetTypeDefineByKPDClassName(const std::string& kpdClassName);

 private:
    // Requires a connection.
    const KlimComSrvHandle& Server() const { return *server_; }
    // 0 and an empty text when not connected.
    int ServerVersion() const { return server_ ? static_cast<int>(Server()->getVersion()) : 0; }
    std::string ServerErrorText() const { return server_ ? Server()->getLastErrorText() : std::string(); }

    int ReadText(const std::string& part, const std::string& attribute, std::string& value);
    int CountConnections(const std::string& part);
    // Sends the bytes of a variable, whose size is set, in chunks. Returns 0, or the first other result.
    int SendBinVariableData(int variable, const void* data, int size);
    // Returns the server's reply to a command that creates. Throws an empty message: the caller's report says what
    // failed.
    using Creation = int (KlimComSrvImpl::*)(const char* command, std::string& reply);
    std::string Create(Creation creation, const std::string& command);
    int SetGeometryFromMemory(const std::string& part, const char* attribute, const void* data, int size);
    bool IsCustomObject(const std::string& part);

    std::optional<KlimComSrvHandle> server_;  // empty when not connected
};

// Restores the three trace switches in its destructor. The second constructor also sets new values.
class TraceSwitchGuard {
 public:
    explicit TraceSwitchGuard(KLComUtils& utils);
    TraceSwitchGuard(KLComUtils& utils, const TraceSwitches& switches);
    ~TraceSwitchGuard();
    TraceSwitchGuard(const TraceSwitchGuard&) = delete;
    TraceSwitchGuard& operator=(const TraceSwitchGuard&) = delete;

 private:
    KLComUtils& utils_;
    TraceSwitches saved_ = {false, true, false};
};

// Frees a binary variable of the server in its destructor, unless Free() has freed it.
class BinVariableGuard {
 public:
    BinVariableGuard(KLComUtils& utils, int variable) : utils_(&utils), variable_(variable) {}
    ~BinVariableGuard() {
        if (utils_) Free();
    }
    BinVariableGuard(const BinVariableGuard&) = delete;
    BinVariableGuard& operator=(const BinVariableGuard&) = delete;

    // Returns the server's result.
    int Free() { return std::exchange(utils_, nullptr)->BinVariableFree(variable_); }

 private:
    KLComUtils* utils_;
    int variable_;
};

// Replaces every occurrence of `search` from left to right. An empty `search` changes nothing.
std::string ReplaceAll(const std::string& text, const std::string& search, const std::string& replacement);
