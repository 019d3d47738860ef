/* The simulator's C interface: a phone in this process. Boot it, load a build of the library, look at it.
 *
 *     sim_options options = {.size = sizeof options, .root = "phone"};
 *     sim_library* library;
 *     if (sim_boot(&options) || sim_load("HuecraftiOS12.so", &library)) puts(sim_last_error());
 *
 * Every function that can fail answers a sim_status and leaves one line in sim_last_error(). None of them
 * ends the process for a caller's mistake, and no exception leaves them; an Objective-C exception inside
 * becomes SIM_RAISED, with its name and reason in the line. What the model of the system does not do is
 * another matter: that stops the process loudly.
 *
 * Texts are UTF-8 and zero-terminated. Texts and arrays given are copied; texts answered stay valid as long
 * as what they belong to. "Host" paths are this machine's, "device" paths begin at the root folder given at
 * boot. Everything is called on the thread that booted: it is the phone's main thread. */
#ifndef HUECRAFT_SIMULATOR_H
#define HUECRAFT_SIMULATOR_H

#include <stdbool.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

#define SIM_API __attribute__((visibility("default")))

typedef enum sim_status {
    SIM_OK = 0,
    /* The call itself is wrong: NULL where that is not allowed, a number out of range, before boot, or booted
       twice. */
    SIM_MISUSE = 1,
    /* What was named does not exist: a file, a class, a symbol, a key plane. */
    SIM_NOT_FOUND = 2,
    /* A file exists but cannot be read, written or used: not a library, or one that needs what the model
       lacks. */
    SIM_BAD_FILE = 3,
    /* An Objective-C exception was raised. */
    SIM_RAISED = 4,
    /* An error of the simulator's own. */
    SIM_FAILED = 5
} sim_status;

/* What was wrong with the last call, in one line; "" when nothing was. Valid until the next call. */
SIM_API const char* sim_last_error(void);

/* The first file of the phone at which the host failed since this was last asked, and why, in one line,
   "/var/mobile/file: Input/output error"; "" when there was none. Applications go on as if there were no
   such file, and most say nothing. A file that is missing, or of another kind, is no failure of the host's.
   Valid until the next call. */
SIM_API const char* sim_host_failure(void);

/* ---- Boot -------------------------------------------------------------------------------------------- */

/* The argument vector that the process claims to have. */
typedef enum sim_arguments {
    SIM_ARGUMENTS_EXECUTABLE = 0, /* the executable's path alone */
    SIM_ARGUMENTS_NONE = 1,       /* no element at all */
    SIM_ARGUMENTS_NIL = 2         /* one element, which is nil */
} sim_arguments;

/* What the injection framework does when something is missing. The phones' frameworks differ in it. */
typedef enum sim_injection {
    /* A hook of a nil class or of a method that is not there does nothing, and the slot for the previous
     * implementation stays as it was. So does one of a function that cannot be patched. */
    SIM_INJECTION_LENIENT = 0,
    /* Such a hook of a method makes the slot nil. A function that cannot be patched ends the process. What an
     * inherited method was asks the superclass again at each call, and while a class is being changed the
     * slot holds something that waits for the end of that. */
    SIM_INJECTION_CLEARING = 1,
    /* The same, but a nil class or a method that is not there ends the process, too. */
    SIM_INJECTION_STRICT = 2,
    /* A strict one behind a function that looks for the method first, and calls it for what is there only. */
    SIM_INJECTION_GUARDED = 3
} sim_injection;

/* What kind of process it is, on which processor. */
typedef enum sim_process {
    /* arm64, up to the A11: of a file it loads the arm64 slice alone. */
    SIM_PROCESS_ARM64 = 0,
    /* An application for arm64 on an A12: it loads the arm64e slice where there is one. Its processor
     * authenticates no addresses, and neither must this machine's. */
    SIM_PROCESS_ARM64_ON_A12 = 1,
    /* The system's own on an A12, SpringBoard and its applications: it loads arm64e slices alone. Addresses
     * of functions are authenticated, and this machine's processor has to do that; the simulator checks every
     * one that it is handed by a library built for the device, and signs every one that it returns. Of the
     * injection frameworks, a lenient one wants signed addresses, and the others strip what they get. */
    SIM_PROCESS_ARM64E = 2
} sim_process;

/* What the phone is. Every member but `size` and `root` may be left zero, which is its default. */
typedef struct sim_options {
    /* sizeof(sim_options): later versions of this interface add members at the end. */
    size_t size;
    /* The host folder that plays the device's file system. Nothing outside it is read or written in the
     * device's name. */
    const char* root;
    /* The device path of the executable that the process claims to run: /Applications/Notes.app/Notes. It
     * need not exist. */
    const char* executable;
    sim_arguments arguments;
    /* "12.4" */
    const char* system_version;
    /* The screen in points, portrait, and its pixels per point (1, 2 or 3): 375 x 667 at 2. */
    double screen_width, screen_height;
    int screen_scale;
    /* Classes of the system to leave out, together with their subclasses; ends with NULL. The caller may
     * register classes of its own under their names. */
    const char* const* left_out_classes;
    /* Methods that the injection framework does not find, "-[UIKBEdgeEffect edges]" or "+[UIKBGradient
     * gradientWithName:]", though the model has and uses them; ends with NULL. */
    const char* const* unfound_methods;
    /* The same, and the replacement is put in the method's place: a framework that adds what it does not
     * find. */
    const char* const* methods_without_previous;
    int injection; /* a sim_injection */
    /* Functions that are too short to be replaced, "UIKBGetNamedColor"; ends with NULL. */
    const char* const* unpatchable_functions;
    /* Folders of the device that the process's sandbox denies it: what lies in them can be neither found, nor
     * read, nor written; ends with NULL. They need not exist. */
    const char* const* denied_folders;
    /* The user's language as a tag: "en", "de", "zh-Hans": "en". */
    const char* language;
    /* Whether text, and with it what stands beside each other, runs from right to left. */
    bool right_to_left;
    /* How large the user wants text, as content size categories end: "XS" to "XXXL", "AccessibilityM" to
     * "AccessibilityXXXL": "L". */
    const char* text_size;
    bool reduce_motion;
    int process; /* a sim_process */
    /* In an arm64e process, the runtime answers class_getMethodImplementation without a signature: a phone
     * that does not do as is known of it. */
    bool unsigned_answers;
} sim_options;

/* Switches the phone on: once per process. */
SIM_API sim_status sim_boot(const sim_options* options);

/* Does in advance what no option decides of sim_boot, and registers the system's classes, but for those kept
 * back (ends with NULL; NULL for none) and their subclasses. The others can no longer be left out. A process
 * that forks others, each to be a phone, does it once for them all. */
SIM_API sim_status sim_prepare(const char* const* kept_back);

/* ---- The library ------------------------------------------------------------------------------------- */

typedef struct sim_library sim_library;

/* Loads a build of the library from a host path, an ELF shared object or a Mach-O dylib, by its
 * contents. Its classes are registered and its initialisers run, as when the injection framework loads it.
 * A library is never unloaded, and cannot be loaded twice. */
SIM_API sim_status sim_load(const char* host_path, sim_library** library);

/* The address of an exported symbol, named as in C: "kGradientLeft", "OBJC_CLASS_$_HCView". A class of that
 * symbol is answered as the runtime knows it, in both builds. */
SIM_API sim_status sim_symbol(const sim_library* library, const char* name, void** address);

/* The names of the classes that the library defined, sorted. */
SIM_API size_t sim_class_count(const sim_library* library);
/* NULL beyond the end. */
SIM_API const char* sim_class_name(const sim_library* library, size_t index);

/* The processor time in seconds that the initialisers took when the library was loaded. Of an ELF build it is
 * the time of loading as a whole, which the dynamic linker does not divide. */
SIM_API sim_status sim_initialiser_time(const sim_library* library, double* seconds);

/* ---- Programs ------------------------------------------------------------------------------------------ */

/* Runs a main executable, built for the device, that lies at a path of the device. The process claims to have
 * the arguments, which end with NULL; the first is what it claims to be. A process that the program starts is
 * a child of this one. What it writes goes to this process's standard output and error. */
SIM_API sim_status sim_run(const char* device_path, const char* const* arguments, int* exit_status);

/* ---- What the library installed ---------------------------------------------------------------------- */

typedef enum sim_call_kind {
    SIM_HOOK_MESSAGE = 0,  /* MSHookMessageEx */
    SIM_HOOK_FUNCTION = 1, /* MSHookFunction */
    SIM_ADD_METHOD = 2     /* class_addMethod, on a class that exists already */
} sim_call_kind;

typedef struct sim_installing_call {
    sim_call_kind kind;
    /* NULL when the class was nil, and for functions. */
    const char* class_name;
    /* The class was a metaclass: class methods. */
    bool on_class;
    /* The selector or the function. */
    const char* name;
    /* The method's type encoding, as given or as found; NULL when there is none. */
    const char* types;
    bool took_effect;
} sim_installing_call;

/* The calls made so far, in order. */
SIM_API size_t sim_installing_call_count(void);
SIM_API sim_status sim_installing_call_at(size_t index, sim_installing_call* call);

/* ---- The keyboard ------------------------------------------------------------------------------------ */

typedef enum sim_colour_model {
    SIM_COLOUR_NONE = 0, /* the system answers no colour */
    SIM_COLOUR_GREY = 1, /* white, alpha */
    SIM_COLOUR_RGB = 2   /* red, green, blue, alpha */
} sim_colour_model;

typedef struct sim_colour {
    sim_colour_model model;
    /* From 0 to 1; as many as the model has. */
    double components[4];
} sim_colour;

/* Asks UIKBGetNamedColor, as the keyboard does; a hook of the library is heard. A name that the model does
 * not know, and no hook answers, is not modelled. */
SIM_API sim_status sim_named_colour(const char* name, sim_colour* colour);

/* Which keyboard to show. Every member but `size` may be left zero. */
typedef struct sim_keyboard {
    size_t size; /* sizeof(sim_keyboard) */
    /* "letters", "shifted", "numbers", "symbols" or "emoji": "letters". */
    const char* plane;
    /* The text or name of the key that is held down: none. */
    const char* pressed_key;
    bool landscape;
    /* What the return key does: "return", or "go", for which the system draws it blue: "return". */
    const char* return_key;
    /* Split in a left and a right half, with the page between them. The emoji plane never is. */
    bool split;
    /* The input switcher is open over the globe key. */
    bool switcher;
    /* The bar of a web form is above the keyboard. */
    bool form_accessory;
    /* The application's page, above and behind the keyboard: "notes", "light" (plain) or "busy" (strong
       colours with sharp edges): "notes". */
    const char* background;
    /* What an input method suggests, in place of the words above the keys: "none", "row" (one row of
       candidates) or "expanded" (rows of them, in place of the keys, too): "none". A split keyboard has no
       candidates. */
    const char* candidates;
} sim_keyboard;

/* Puts the keyboard on the screen, in place of what was there. NULL shows the defaults. */
SIM_API sim_status sim_show_keyboard(const sim_keyboard* keyboard);

/* A key of the keyboard on the screen: where it takes touches, in points from the screen's upper left
 * corner. */
typedef struct sim_key {
    /* "Latin-Small-Letter-G", "Shift-Key" */
    const char* name;
    /* What stands on it; NULL for a key with a glyph. */
    const char* text;
    double x, y, width, height;
} sim_key;

/* The keys of the plane on the screen, row by row; none before a keyboard is shown. Marks on other keys are
 * not among them. Names and texts are valid until another keyboard is shown. */
SIM_API size_t sim_key_count(void);
SIM_API sim_status sim_key_at(size_t index, sim_key* key);

/* ---- The screen --------------------------------------------------------------------------------------- */

/* Puts a view on the screen, at the frame it has, over the page of notes and in place of what was there.
 * `view` is a UIView; the screen owns it until something else is shown. */
SIM_API sim_status sim_show_view(void* view);

/* Presents a view controller, `controller` a UIViewController, over the page of notes and in place of what
 * was there. Its view appears at once. A controller whose modalPresentationStyle is 5 (over full screen)
 * leaves the page to be seen behind its view; the default style does not. */
SIM_API sim_status sim_present(void* controller);

/* The controller that was presented last and has not been dismissed; NULL when there is none. */
SIM_API sim_status sim_presented(void** controller);

/* The first view of that class on the screen, page and all, parents before their children; subclasses count.
 * It belongs to the screen. */
SIM_API sim_status sim_view_on_screen(const char* class_name, void** view);

/* ---- Touches ----------------------------------------------------------------------------------------- */

typedef enum sim_touch_phase {
    SIM_TOUCH_BEGAN = 0,
    SIM_TOUCH_MOVED = 1,
    SIM_TOUCH_ENDED = 2,
    SIM_TOUCH_CANCELLED = 3
} sim_touch_phase;

/* Puts the one finger down at a point of the screen, moves it there, lifts it there or takes the touch back.
 * `phase` is a sim_touch_phase. The point is in points from the upper left corner. Views are laid out, and
 * what the finger landed on, as hit testing finds it, receives the touch. */
SIM_API sim_status sim_touch(int phase, double x, double y);

/* Puts the finger down and lifts it. */
SIM_API sim_status sim_tap(double x, double y);

/* Two fingers at once, the same way: for gestures. They land, move and are lifted together. */
SIM_API sim_status sim_touch_two(int phase, double first_x, double first_y, double second_x, double second_y);

/* Taps the middle of the frontmost view on the screen that is called so: by what VoiceOver says of it, which
 * of labels, buttons and table cells is their text. SIM_NOT_FOUND when there is none, or when something
 * covers it. */
SIM_API sim_status sim_tap_label(const char* label);

/* ---- Time -------------------------------------------------------------------------------------------- */

/* Lets that many seconds pass, 0 included, which they never do by themselves. Animations go on, and whoever
 * waits for the end of one is notified, in order and each at its time; then the screen is laid out. Pictures
 * show animations as they are at the moment. */
SIM_API sim_status sim_advance_clock(double seconds);

/* ---- Settings ---------------------------------------------------------------------------------------- */

/* Shows the Settings app, in place of what was there: its root list, with the rows that the phone's files in
 * /Library/PreferenceLoader/Preferences ask for. The process is to claim
 * /Applications/Preferences.app/Preferences. A row that is touched loads its bundle's executable as sim_load
 * does, and shows the page of its class. What is left out or cannot be loaded is said on stderr. */
SIM_API sim_status sim_open_settings(void);

/* The rows that were added, in their order. */
SIM_API size_t sim_settings_row_count(void);
/* NULL beyond the end. */
SIM_API const char* sim_settings_row(size_t index);

/* ---- What leaves the phone --------------------------------------------------------------------------------
 */

/* A program that was started by posix_spawn, unless by one that sim_run runs. It is noted and never run: in
 * its place a process ends at once. */
typedef struct sim_program {
    const char* path;             /* of the device */
    const char* const* arguments; /* ends with NULL */
    int error; /* what posix_spawn returned: 0, or ENOENT where no such file is on the phone */
} sim_program;

SIM_API size_t sim_program_count(void);
/* Valid until the next call of this function. */
SIM_API sim_status sim_program_at(size_t index, sim_program* program);
/* What such a process says when it ends, from 0 to 255: 0. */
SIM_API sim_status sim_end_programs_with(int exit_status);

/* The addresses that UIApplication was asked to open; NULL beyond the end. */
SIM_API size_t sim_opened_address_count(void);
SIM_API const char* sim_opened_address(size_t index);

/* What was handed to the share sheet, and shared by its button "Share". */
typedef struct sim_shared_item {
    const char* kind;    /* "text", "file" or "image" */
    const char* content; /* the text, the file's path on the device, or the image's size: "20 x 30" */
} sim_shared_item;

SIM_API size_t sim_shared_item_count(void);
SIM_API sim_status sim_shared_item_at(size_t index, sim_shared_item* item);

/* ---- Memory ------------------------------------------------------------------------------------------- */

/* The system runs out of memory: a notification is posted, and every controller on the screen notified. */
SIM_API sim_status sim_warn_of_memory(void);

/* ---- Typing ------------------------------------------------------------------------------------------ */

/* Typing goes to the text field that is the first responder, as from a keyboard: its delegate is asked.
 * Without one that is SIM_NOT_FOUND. */

/* Types a text character by character, as it is; the end of a line is the return key. */
SIM_API sim_status sim_type_text(const char* text);
/* Deletes what is selected, or the character before the caret. */
SIM_API sim_status sim_delete_backward(void);
SIM_API sim_status sim_press_return(void);
/* Selects text, in UTF-16 units; with length 0 the caret goes there. */
SIM_API sim_status sim_select_text(size_t location, size_t length);

/* Draws the screen and writes it to a host path as PNG. `scale` is in pixels per point; 0 is the screen's. */
SIM_API sim_status sim_take_picture(const char* host_path, double scale);

/* The same of a view alone, on the screen or not: laid out, as large as its bounds, transparent where nothing
 * is drawn. */
SIM_API sim_status sim_take_picture_of(void* view, const char* host_path, double scale);

/* ---- Recording ---------------------------------------------------------------------------------------- */

/* Records the screen: the first picture is taken now, and as many as wanted, 1 to 60, in each second that
 * sim_advance_clock lets pass, each at its time; by at most 600 seconds at once. `scale` is in pixels per
 * point; 0 is the screen's. The pictures have the size of the first. */
SIM_API sim_status sim_start_recording(double scale, int frames_per_second);

/* Stops, and writes the recording to a host path: an animated PNG, which is played again and again. Pictures
 * that are the same are one frame. When it cannot be written, the recording goes on; NULL throws it away. */
SIM_API sim_status sim_stop_recording(const char* host_path);

/* ---- Layout ------------------------------------------------------------------------------------------- */

typedef enum sim_layout_problem {
    /* Constraints contradict each other: one of them is left out. */
    SIM_LAYOUT_CONFLICT = 0,
    /* Constraints say too little of a view: it is as small as they let it be. */
    SIM_LAYOUT_AMBIGUITY = 1
} sim_layout_problem;

typedef struct sim_layout_report {
    sim_layout_problem problem;
    /* Names the views by their classes and places in the tree. It was written to stderr, too. */
    const char* line;
} sim_layout_report;

/* What was wrong with the layouts by constraints so far, in order. Nothing is reported twice while it stays
 * wrong. The line is valid until the next layout. */
SIM_API size_t sim_layout_report_count(void);
SIM_API sim_status sim_layout_report_at(size_t index, sim_layout_report* report);

#ifdef __cplusplus
}
#endif

#endif
