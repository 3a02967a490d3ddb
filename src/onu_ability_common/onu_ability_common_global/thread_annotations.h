/** @file
 * Says to clang's thread-safety analysis which lock guards what. Nothing is left of
 * it with other compilers. */
#ifndef ONU_ABILITY_COMMON_GLOBAL_THREAD_ANNOTATIONS_H
#define ONU_ABILITY_COMMON_GLOBAL_THREAD_ANNOTATIONS_H

/** What all of the others are made of. */
#if defined(__clang__)
#define ONU_ABILITY_THREAD_ATTRIBUTE(attribute) __attribute__((attribute))
#else
#define ONU_ABILITY_THREAD_ATTRIBUTE(attribute)
#endif

/** @{ */
/** Of a class that is a lock, and of one that holds a lock for a scope. */
#define ONU_ABILITY_LOCK(kind) ONU_ABILITY_THREAD_ATTRIBUTE(capability(kind))
#define ONU_ABILITY_SCOPED_LOCK ONU_ABILITY_THREAD_ATTRIBUTE(scoped_lockable)
/** @} */

/** @{ */
/** Of a member: the lock under which it, or what it points to, is read and changed. */
#define ONU_ABILITY_GUARDED_BY(lock) ONU_ABILITY_THREAD_ATTRIBUTE(guarded_by(lock))
#define ONU_ABILITY_POINTEE_GUARDED_BY(lock) ONU_ABILITY_THREAD_ATTRIBUTE(pt_guarded_by(lock))
/** @} */
/** Of a lock: the one that is taken before it where both are held. */
#define ONU_ABILITY_TAKEN_AFTER(lock) ONU_ABILITY_THREAD_ATTRIBUTE(acquired_after(lock))

/** @{ */
/** Of an operation: what its caller holds, or does not hold. */
#define ONU_ABILITY_REQUIRES(...) ONU_ABILITY_THREAD_ATTRIBUTE(requires_capability(__VA_ARGS__))
#define ONU_ABILITY_REQUIRES_SHARED(...) \
  ONU_ABILITY_THREAD_ATTRIBUTE(requires_shared_capability(__VA_ARGS__))
#define ONU_ABILITY_EXCLUDES(...) ONU_ABILITY_THREAD_ATTRIBUTE(locks_excluded(__VA_ARGS__))
/** @} */

/** @{ */
/** Of an operation: what it takes or gives back. */
#define ONU_ABILITY_TAKES(...) ONU_ABILITY_THREAD_ATTRIBUTE(acquire_capability(__VA_ARGS__))
#define ONU_ABILITY_TAKES_SHARED(...) \
  ONU_ABILITY_THREAD_ATTRIBUTE(acquire_shared_capability(__VA_ARGS__))
#define ONU_ABILITY_GIVES_BACK(...) \
  ONU_ABILITY_THREAD_ATTRIBUTE(release_generic_capability(__VA_ARGS__))
/** @} */
/** After the call the analysis believes that the lock is held for reading. */
#define ONU_ABILITY_SAYS_SHARED(...) \
  ONU_ABILITY_THREAD_ATTRIBUTE(assert_shared_capability(__VA_ARGS__))

/** Of an operation that the analysis cannot follow; a comment there says why. */
#define ONU_ABILITY_NOT_ANALYSED ONU_ABILITY_THREAD_ATTRIBUTE(no_thread_safety_analysis)

#endif /* ONU_ABILITY_COMMON_GLOBAL_THREAD_ANNOTATIONS_H */
