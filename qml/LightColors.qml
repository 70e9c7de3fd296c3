pragma Singleton

// What dialogs and menus look like where no theme is given.
Colors { dark: false }
