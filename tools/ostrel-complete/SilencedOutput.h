#ifndef OSTREL_COMPLETE_SILENCEDOUTPUT_H
#define OSTREL_COMPLETE_SILENCEDOUTPUT_H

namespace Ostrel {

// Sends standard output and standard error to /dev/null for its lifetime: what plug-ins say
// while they load must not land in the user's command line. Restores both descriptors.
class SilencedOutput {
public:
    SilencedOutput();
    SilencedOutput(SilencedOutput const&) = delete;
    SilencedOutput& operator=(SilencedOutput const&) = delete;
    ~SilencedOutput();

private:
    int savedOut = -1;
    int savedErr = -1;
};

}  // namespace Ostrel

#endif
