/* The camera library: makes a camera that other programs see, and feeds it with pictures.
 *
 * Any thread may call, but for one camera no two calls of scSendFrame() overlap, and none of any
 * function with scDeleteCamera(). No function waits for a program that watches the camera or for a
 * service of the system. A null camera is ignored. */
#pragma once

#if defined(__GNUC__)
#define SOFTCAM_API __attribute__((visibility("default")))
#else
#define SOFTCAM_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef void* scCamera;

/* A camera of `width` x `height` pixels (1 to 8192 each). A frame rate that is not greater than 1,
 * or no number, means 30 pictures per second; 1000 is the highest.
 * Returns null when the size is out of range or memory is short. A camera service that does not run
 * is no failure: the camera appears when the service does, and again after its restart. */
SOFTCAM_API scCamera scCreateCamera(int width, int height, float framerate);

/* Takes the camera away from the programs that watch it, and frees it. */
SOFTCAM_API void scDeleteCamera(scCamera camera);

/* Shows a picture: width * height * 3 bytes (blue, green, red; top row first; no padding), copied
 * before the call returns. A picture is passed on once, so the owner keeps the rate of the camera
 * by sending the last one again. Costs next to nothing while nobody watches. */
SOFTCAM_API void scSendFrame(scCamera camera, const void* bgrPixels);

/* Non-zero while a program reads the camera. */
SOFTCAM_API int scIsConnected(scCamera camera);

#ifdef __cplusplus
}
#endif
