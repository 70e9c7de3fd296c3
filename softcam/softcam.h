/* The camera library: makes a camera that other programs see, and feeds it with pictures.
 *
 * Any thread may call, but for one camera no two calls of scSendFrame() overlap, and none of any
 * function with scDeleteCamera(). No function waits for a program that watches the camera or for a
 * service of the system. A null camera is ignored.
 *
 * A program that watches the camera keeps the size, rate and layout that it agreed on when it
 * opened the camera, for as long as it reads. Each picture is scaled for it, with its proportions
 * kept and black bars at the sides, and the last picture is repeated where no new one comes at the
 * reader's rate. A camera that is deleted and made anew, in whatever size and rate, ends no reader.
 * New readers are offered the size of the camera that is there, and on Linux any other one that
 * they ask for; programs that read at one time there share one format, that of the first.
 *
 * When no camera comes back, Linux takes the source away from its readers after five seconds; it is
 * gone at once when the process ends. On Windows the readers get a card of the library's own
 * instead until there is a camera again, in whatever process. */
#pragma once

#if defined(__ELF__)
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
 * Returns null when the size is out of range, when memory is short and, on Windows, when there is a
 * camera already, of this process or another one of the same user session. A camera service that
 * does not run is no failure: the camera appears when the service does, and again after its
 * restart. */
SOFTCAM_API scCamera scCreateCamera(int width, int height, float framerate);

/* Frees the camera. What happens to the programs that watch it stands at the top. */
SOFTCAM_API void scDeleteCamera(scCamera camera);

/* Shows a picture: width * height * 3 bytes (blue, green, red; top row first; no padding), copied
 * before the call returns, and handed on at once where that keeps the reader's rate. Costs next to
 * nothing while nobody watches. */
SOFTCAM_API void scSendFrame(scCamera camera, const void* bgrPixels);

/* Non-zero while a program reads the camera. */
SOFTCAM_API int scIsConnected(scCamera camera);

#ifdef __cplusplus
}
#endif
