// The host's record of the backend's version, and the one test that every feature gate uses.
#ifndef CONTRACT_BACKENDVERSIONS_H
#define CONTRACT_BACKENDVERSIONS_H

// Older C libraries define these two as macros in <sys/types.h>.
#undef major
#undef minor

/// Owned by the host, which hands over a pointer; the layout is part of the binary contract.
struct BackendVersions
{
    int reserved[3]; ///< the host's own group of three; the module never reads it
    int major;
    int minor;
    int patch; ///< -1 where the backend names none
};

/// The lowest backend version, `major`.`minor`.0, that has a feature.
struct VersionGate
{
    int major;
    int minor;
};

/// True if the backend has what `gate` stands for. At exactly the gate's major and minor number a
/// `patch` of -1 passes and one more negative than that fails; this is wanted.
inline bool passes(const BackendVersions& versions, const VersionGate& gate)
{
    if (versions.major != gate.major)
        return versions.major > gate.major;
    if (versions.minor != gate.minor)
        return versions.minor > gate.minor;
    return versions.patch >= -1;
}

#endif
