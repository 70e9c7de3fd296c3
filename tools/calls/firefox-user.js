// The profile of the call page's Firefox: cameras of PipeWire, no questions, no first-run pages.
user_pref('media.webrtc.camera.allow-pipewire', true);
user_pref('media.navigator.permission.disabled', true);
user_pref('browser.aboutwelcome.enabled', false);
user_pref('browser.preonboarding.enabled', false);
user_pref('browser.shell.checkDefaultBrowser', false);
user_pref('datareporting.policy.dataSubmissionEnabled', false);
user_pref('termsofuse.acceptedVersion', 999);
