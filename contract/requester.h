// The callback interface through which the host delivers tracking data to a module.
#ifndef CONTRACT_REQUESTER_H
#define CONTRACT_REQUESTER_H

/// Implemented by the module, called by the host. The order of the operations is part of the
/// binary contract between host and plug-in. There is no virtual destructor: the host never
/// deletes a requester.
class Requester
{
public:
    /// One tracking data line of a subscribed type, as zero-terminated text. May be called from
    /// any one thread. Returns 0 if the line was taken or is of no interest, a negative number
    /// otherwise, also for a null pointer; the host need not look at it.
    virtual int set_ascii_data(const char* line_type, const char* line) = 0;

    /// The host says that a measurement has started.
    virtual void set_mea_started() = 0;

    /// The host says that a measurement has stopped.
    virtual void set_mea_stopped() = 0;

protected:
    ~Requester() {}
};

#endif
