# Deferred and concurrent execution: delayed calls, the input-excluding loop, wait
# primitives, runnable items and operation completion waiters.
utilsdll_add_sources(
    PUBLIC_HEADERS
        DelayedCall.h
        ExcludeUserInpuEventLoop.h
        WaitPrimitives.h
        RunnableItem.h
        OperationCompletionWaiter.h
    SOURCES
        DelayedCall.cpp
        ExcludeUserInpuEventLoop.cpp
        WaitPrimitives.cpp
        RunnableItem.cpp
        OperationCompletionWaiter.cpp
)
