#include "KeelbrightCore/platform/system/ThreadPriority.h"

#include <pthread.h>

namespace keelbright {

unsigned int ThreadPriority::inherited()
{
    return ::qos_class_self();
}

void ThreadPriority::inherit(unsigned int inherited)
{
    ::pthread_set_qos_class_self_np(static_cast<qos_class_t>(inherited), 0);
}

int ThreadPriority::niceOfThisThread()
{
    return 0;
}

void ThreadPriority::becomeUserInitiated(int)
{
    ::pthread_set_qos_class_self_np(QOS_CLASS_USER_INITIATED, 0);
}

void ThreadPriority::becomeUtility(int)
{
    ::pthread_set_qos_class_self_np(QOS_CLASS_UTILITY, 0);
}

} // namespace keelbright
