-- Rows every new Quillorne database starts with. Runs after schema.sql, in the same
-- transaction, on both backends.

-- The attendance legend shows these; "Sickness" is looked up by its label.
INSERT INTO Absence_Lookup (Code, Reason) VALUES
    ('S', 'Sickness'),
    ('D', 'Doctors/Dentist'),
    ('M', 'Maternity Leave'),
    ('P', 'Parental leave'),
    ('R', 'Paternity Leave'),
    ('U', 'Unpaid leave');

-- "Note/Comment only" adds a note without touching the call's status.
INSERT INTO CallAction (Action) VALUES
    ('Note/Comment only'),
    ('Telephoned user'),
    ('Emailed user'),
    ('Remote session to PC'),
    ('Visited user'),
    ('Replaced part'),
    ('Reinstalled software'),
    ('Ordered replacement'),
    ('Referred to supplier'),
    ('Awaiting user response');

INSERT INTO CallStatus (Status) VALUES
    ('Open'),
    ('Closed');

INSERT INTO Faults (Fault_Types) VALUES
    ('Computer/Software'),
    ('Printer'),
    ('Scanner'),
    ('Monitor');

INSERT INTO EthOrigin (origin) VALUES
    ('White - British'),
    ('White - Irish'),
    ('White - Other'),
    ('Mixed - White and Black Caribbean'),
    ('Mixed - White and Black African'),
    ('Mixed - White and Asian'),
    ('Mixed - Other'),
    ('Asian or Asian British - Indian'),
    ('Asian or Asian British - Pakistani'),
    ('Asian or Asian British - Bangladeshi'),
    ('Asian or Asian British - Other'),
    ('Black or Black British - Caribbean'),
    ('Black or Black British - African'),
    ('Black or Black British - Other'),
    ('Chinese'),
    ('Other ethnic group'),
    ('Not stated');

-- Printer, Scanner and Monitor have screens of their own; the rest are kept as peripherals
-- of a computer.
INSERT INTO PeripheralType (Type) VALUES
    ('Printer'),
    ('Scanner'),
    ('Monitor'),
    ('Docking Station'),
    ('Projector'),
    ('Plotter'),
    ('UPS'),
    ('External Drive'),
    ('Webcam');

INSERT INTO services (service) VALUES
    ('Computer Hardware'),
    ('Software'),
    ('Printers and Consumables'),
    ('Network and Cabling'),
    ('Telephones'),
    ('Stationery'),
    ('Office Furniture'),
    ('Cleaning'),
    ('Catering'),
    ('Recruitment'),
    ('Training'),
    ('Building Maintenance'),
    ('Courier'),
    ('Insurance');

INSERT INTO Courses (Title) VALUES
    ('Health and Safety Induction'),
    ('First Aid at Work'),
    ('Emergency First Aid Refresher'),
    ('Fire Warden'),
    ('Manual Handling'),
    ('Display Screen Equipment'),
    ('Data Protection'),
    ('Equality and Diversity'),
    ('Customer Service Skills'),
    ('Time Management'),
    ('Introduction to Management'),
    ('Spreadsheets - Intermediate'),
    ('Spreadsheets - Advanced'),
    ('Word Processing'),
    ('Forklift Truck Operation');

INSERT INTO options (NoDaysAbsence, SickBeforeDoc, baserate, fireexttest, firelength, pattest,
                     patlength, nodaysbackup, language)
VALUES (10, 7, 22, NULL, NULL, NULL, NULL, 7, 'English (UK)');
